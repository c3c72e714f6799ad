#pragma once

#include "core/plane.h"

#include <span>

namespace orvex {

// Whole-numbered extents of the neighbourhood in which the centroids are taken, px.
struct CentroidExtents {
    double dX;
    double dY;
};

struct Centre {
    double dX;
    double dY;
};

// Refines the coarse centre by up to 7 rounds of centroids over narrowing ranges of the dark histograms; each
// round's centre has single precision. A round without dark pixels gives NaN, which runs on.
Centre RefineByCentroids(std::span<const double> adColumns, std::span<const double> adRows,
                         CentroidExtents tExtents, Centre tCoarse);

// Rows or columns of the bar around the centre: the first and the last entry above 20 dark pixels within a
// third of the extent to either side; empty if there is none. Entry 0 cannot be told from none found.
Range FindBarBand(std::span<const double> adHistogram, double dCentre, double dExtent);

} // namespace orvex

#pragma once

#include "chart/chart.h"

#include <vector>

namespace chart {

// A rectangle centred on the chart's origin, counted nWeight times.
struct InkPatch {
    double dHalfX;
    double dHalfY;
    int nWeight;
};

// Rectangles whose weighted sum is 1 on ink and 0 on paper, for any measures: frame and bars may overlap.
std::vector<InkPatch> InkPatches(const Chart& tChart);

} // namespace chart

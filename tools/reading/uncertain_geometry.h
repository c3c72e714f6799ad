#pragma once

#include "reading/camera_reading.h"

namespace tools {

// Where a line along the rows meets one along the columns, with the covariance that both lines' give it.
UncertainPoint CrossingOf(const UncertainLine& tHorizontal, const UncertainLine& tVertical);

// The corner in which two half sides end.
template <typename Half>
UncertainPoint CornerOf(std::size_t nCorner, const std::array<std::array<Half, 2>, 4>& aaHalves) {
    const bool bRight = nCorner % 2 == 1, bLower = nCorner >= 2;
    return CrossingOf(aaHalves[bLower ? 3 : 1][bRight ? 1 : 0].tLine,
                      aaHalves[bRight ? 2 : 0][bLower ? 1 : 0].tLine);
}

// Sides, tilts and roll from the corners and the horizontal bar, by the library's formulas.
void DeriveAngles(const ChartMeasures& tMeasures, CameraReading& reading);

} // namespace tools

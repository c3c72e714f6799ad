#pragma once

#include "corners/line_fit.h"

namespace orvex {

// Ten points on one side of the frame, px.
struct SidePoints {
    double adX[nFitPoints];
    double adY[nFitPoints];
};

struct CornerPosition {
    double dX;
    double dY;
};

// Crossing of the two sides that meet at a corner; nothing if the horizontal side has no fit. Without a fit
// of the vertical side the corner falls back to the horizontal side's point at column 0, on purpose.
std::optional<CornerPosition> CrossSides(const SidePoints& tHorizontal, const SidePoints& tVertical);

} // namespace orvex

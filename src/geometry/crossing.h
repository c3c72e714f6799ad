#pragma once

#include "geometry/bar_line.h"

namespace orvex {

// Crossing of the two bars' centre lines, px. tHorizontal: left and right end; tVertical: upper and lower
// end.
Centre CrossBars(const BarLine& tHorizontal, const BarLine& tVertical);

// Slope of the horizontal bar in degrees, in single precision; positive if its right end lies lower.
float BarAngle(const BarLine& tHorizontal);

} // namespace orvex

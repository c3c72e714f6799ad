#pragma once

#include "reading/line_reading.h"

namespace tools {

// Reads a bar of the cross on both sides of the other one. The bar is expected around tLine's middle, as wide
// as the frame's line, and to end within dHalf of it. Nothing if there is none.
std::optional<LineCentres> ReadBar(const AxisView& tView, const RoughLine& tExpected, double dHalf);

} // namespace tools

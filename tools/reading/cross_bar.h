#pragma once

#include "reading/line_reading.h"

namespace tools {

// Reads a bar of the cross on both sides of the other one, which is dOther wide. The bar is expected around
// the line's middle, and to end within dHalf of it. Nothing if there is none.
std::optional<LineCentres> ReadBar(const AxisView& tView, const RoughLine& tExpected, double dHalf,
                                   double dOther);

} // namespace tools

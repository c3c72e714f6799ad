#pragma once

namespace tools {

// How far on the way from one sample to the next a blurred edge passes its half level, from 0 to 1. Takes what
// share of the step from dark to bright each sample has: the first up to a half, the next more.
double HalfwayBetween(double dShare, double dNextShare);

} // namespace tools

#pragma once

#include "chart/scene.h"

namespace chart {

// Largest blur that is applied; the work grows with its square.
constexpr double kMaxBlurSigma = 50.0;

// Spreads every pixel by a near-Gaussian whose variance along each axis is exactly dSigma^2 (px). The border
// pixels continue outwards. 0 or less changes nothing.
void Blur(Plane& tPlane, double dSigma);

} // namespace chart

#pragma once

#include "chart/camera.h"

#include <array>

namespace chart {

struct SinCos {
    double dSin;
    double dCos;
};

// Sine and cosine from a series of fixed length and order, the same bits on every machine; the mathematics
// libraries differ in the last one. Right to double rounding within +-90 degrees.
SinCos SinCosOfDegrees(double dDegrees);

using Matrix3 = std::array<std::array<double, 3>, 3>;

// Turns chart coordinates (X, Y, distance) into camera coordinates: Rz(-rz) * Rx(-rx) * Ry(-ry). In this
// order the three angles do not mix in the picture: the slope of the horizontal bar is tan(rz) whatever the
// other two are.
Matrix3 ChartToCamera(const Pose& tPose);

} // namespace chart

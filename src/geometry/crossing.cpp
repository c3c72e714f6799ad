#include "geometry/crossing.h"

#include <cmath>

namespace orvex {
namespace {

// Means closer than this count as one column, px: below it the slope's formula loses the centre to
// cancellation, and the upright bar is its limit to better than single precision.
constexpr double dUpright = 1e-6;

// The results' own constant, not the nearest double to pi.
constexpr double dPi = 3.14159265359;

} // namespace

Centre CrossBars(const BarLine& tHorizontal, const BarLine& tVertical) {
    const double xL = tHorizontal.tFirst.dAlong, yL = tHorizontal.tFirst.dAcross;
    const double xR = tHorizontal.tSecond.dAlong, yR = tHorizontal.tSecond.dAcross;
    const double xU = tVertical.tFirst.dAcross, yU = tVertical.tFirst.dAlong;
    const double xD = tVertical.tSecond.dAcross, yD = tVertical.tSecond.dAlong;
    const double mH = (yR - yL) / (xR - xL);
    const double bH = yR - xR * (yR - yL) / (xR - xL);
    if (std::fabs(xD - xU) < dUpright)
        return {xD, xD * mH + bH};
    const double mV = (yD - yU) / (xD - xU);
    const double bV = yD - xD * (yD - yU) / (xD - xU);
    const double x = (bH - bV) / (mV - mH);
    return {x, mV * x + bV};
}

float BarAngle(const BarLine& t) {
    const float fSlope = static_cast<float>(t.tFirst.dAcross - t.tSecond.dAcross) /
                         static_cast<float>(t.tFirst.dAlong - t.tSecond.dAlong);
    return static_cast<float>(std::atan(static_cast<double>(fSlope)) * 180.0 / dPi);
}

} // namespace orvex

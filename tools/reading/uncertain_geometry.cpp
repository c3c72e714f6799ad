#include "reading/uncertain_geometry.h"

namespace tools {

UncertainPoint CrossingOf(const UncertainLine& tHorizontal, const UncertainLine& tVertical) {
    const double m = tHorizontal.dSlope, n = tVertical.dSlope, dDivisor = 1 - m * n;
    const double dX = tVertical.At(tHorizontal.At(0)) / dDivisor, dY = tHorizontal.At(dX);
    // A shift of the horizontal line by e moves the point by (n e, e) / divisor, one of the vertical line by
    // (e, m e) / divisor.
    const double u = tHorizontal.VarianceAt(dX) / (dDivisor * dDivisor);
    const double v = tVertical.VarianceAt(dY) / (dDivisor * dDivisor);
    return {{dX, dY}, n * n * u + v, n * u + m * v, u + m * m * v};
}

} // namespace tools

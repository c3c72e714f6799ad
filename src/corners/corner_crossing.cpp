#include "corners/corner_crossing.h"

#include <cmath>

namespace orvex {

std::optional<CornerPosition> CrossSides(const SidePoints& tHorizontal, const SidePoints& tVertical) {
    double m1 = 0.0, c1 = 0.0, m2 = 0.0, c2 = 0.0;
    if (!FitLineYonX(tHorizontal.adX, tHorizontal.adY, &m1, &c1))
        return std::nullopt;
    if (!FitLineXonY(tVertical.adX, tVertical.adY, &m2, &c2))
        return CornerPosition{0.0, c1};
    // An exactly vertical side has no y-on-x form: it is crossed at its own column, so that an upright chart
    // measures 0 degrees.
    const double x =
        std::isinf(m2) ? FitLine(tVertical.adY, tVertical.adX)->dIntercept : (c2 - c1) / (m1 - m2);
    return CornerPosition{x, m1 * x + c1};
}

} // namespace orvex

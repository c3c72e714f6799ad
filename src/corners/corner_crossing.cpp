#include "corners/corner_crossing.h"

namespace orvex {

std::optional<CornerPosition> CrossSides(const SidePoints& tHorizontal, const SidePoints& tVertical) {
    const std::optional<FittedLine> oHorizontal = FitLine(tHorizontal.adX, tHorizontal.adY);
    if (!oHorizontal)
        return std::nullopt;
    const double m1 = oHorizontal->dSlope, c1 = oHorizontal->dIntercept;
    const std::optional<FittedLine> oVertical = FitLine(tVertical.adY, tVertical.adX); // x on y
    if (!oVertical)
        return CornerPosition{0.0, c1};
    // An exactly vertical side has no y-on-x form: it is crossed at its own column, so that an upright chart
    // measures 0 degrees.
    if (oVertical->dSlope == 0.0)
        return CornerPosition{oVertical->dIntercept, m1 * oVertical->dIntercept + c1};
    double m2 = 0.0, c2 = 0.0;
    FitLineXonY(tVertical.adX, tVertical.adY, &m2, &c2);
    const double x = (c2 - c1) / (m1 - m2);
    return CornerPosition{x, m1 * x + c1};
}

} // namespace orvex

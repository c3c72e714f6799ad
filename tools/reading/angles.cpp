#include "reading/angles.h"

#include <cmath>

namespace tools {
namespace {

UncertainNumber Difference(UncertainNumber tSlave, UncertainNumber tMaster) {
    return {tSlave.dValue - tMaster.dValue, tSlave.dVariance + tMaster.dVariance};
}

constexpr double kDegrees = 57.29577951308232; // per radian

// By how much the library's formulas miss a camera's rotation, first about y, then about x, where it is
// tilted about both: they take a side for as long as its middle is near, and upright. To the third order.
Angles FormulaErrors(const CameraReading& t, const ChartMeasures& tMeasures) {
    const double x = t.tTiltX.dValue / kDegrees, y = t.tTiltY.dValue / kDegrees;
    const double dSpanX = std::pow(tMeasures.dHalfSpanX / tMeasures.dDistance, 2),
                 dSpanY = std::pow(tMeasures.dHalfSpanY / tMeasures.dDistance, 2);
    return {x * y * y * (1.5 + 2 * dSpanX + dSpanY) * kDegrees,
            y * x * x * (1 + dSpanX + 2 * dSpanY) * kDegrees, 0};
}

} // namespace

UncertainNumber Rescaled(UncertainNumber tRaw) {
    constexpr double kKept = 0.2, kFactor = 1.8 / 2.3;
    if (std::fabs(tRaw.dValue) < 1)
        return tRaw;
    const double dMagnitude = (std::fabs(tRaw.dValue) - kKept) * kFactor + kKept;
    return {std::copysign(dMagnitude, tRaw.dValue), tRaw.dVariance * kFactor * kFactor};
}

UncertainAngles AnglesOf(const CameraReading& tMaster, const CameraReading& tSlave,
                         const ChartMeasures& tMeasures) {
    UncertainAngles t;
    t.aRaw = {Difference(tSlave.tTiltX, tMaster.tTiltX), Difference(tSlave.tTiltY, tMaster.tTiltY),
              Difference(tSlave.tRoll, tMaster.tRoll)};
    // The result keeps the formulas' error, as the library's does, so that it belongs to the uncertainty.
    const Angles tOne = FormulaErrors(tMaster, tMeasures), tOther = FormulaErrors(tSlave, tMeasures);
    t.aRaw[0].dVariance += std::pow(tOther.dRx - tOne.dRx, 2);
    t.aRaw[1].dVariance += std::pow(tOther.dRy - tOne.dRy, 2);
    for (std::size_t i = 0; i < t.aRaw.size(); ++i)
        t.aRescaled[i] = Rescaled(t.aRaw[i]);
    return t;
}

} // namespace tools

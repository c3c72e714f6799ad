#include "reading/angles.h"

#include <cmath>
#include <numbers>

namespace tools {
namespace {

constexpr double kDegrees = 180 / std::numbers::pi; // per radian

UncertainNumber Distance(const UncertainPoint& a, const UncertainPoint& b) {
    const double dX = b.tPlace.dX - a.tPlace.dX, dY = b.tPlace.dY - a.tPlace.dY, dLength = std::hypot(dX, dY);
    const double u = dX / dLength, v = dY / dLength;
    return {dLength, u * u * (a.dVarianceX + b.dVarianceX) + 2 * u * v * (a.dCovariance + b.dCovariance) +
                         v * v * (a.dVarianceY + b.dVarianceY)};
}

// The tilt that makes one of two opposite sides look longer than the other. No corner belongs to both.
UncertainNumber TiltOf(UncertainNumber a, UncertainNumber b, double dDistance, double dHalfSpan) {
    const double dSum = a.dValue + b.dValue, q = dDistance / dHalfSpan * (a.dValue - b.dValue) / dSum;
    const double dFactor = kDegrees / (1 + q * q) * dDistance / dHalfSpan * 2 / (dSum * dSum);
    return {std::atan(q) * kDegrees,
            dFactor * dFactor * (b.dValue * b.dValue * a.dVariance + a.dValue * a.dValue * b.dVariance)};
}

// By how much the library's formulas miss a camera's rotation, first about y, then about x, where it is
// tilted about both: they take a side for as long as its middle is near, and upright. To the third order.
std::array<double, 3> FormulaErrors(const CameraReading& t, const ChartMeasures& tMeasures) {
    const double x = t.tTiltX.dValue / kDegrees, y = t.tTiltY.dValue / kDegrees;
    const double dSpanX = std::pow(tMeasures.dHalfSpanX / tMeasures.dDistance, 2);
    const double dSpanY = std::pow(tMeasures.dHalfSpanY / tMeasures.dDistance, 2);
    return {x * y * y * (1.5 + 2 * dSpanX + dSpanY) * kDegrees,
            y * x * x * (1 + dSpanX + 2 * dSpanY) * kDegrees, 0};
}

} // namespace

void DeriveTilts(const ChartMeasures& tMeasures, CameraReading& reading) {
    for (std::size_t n = 0; n < kSides.size(); ++n)
        reading.aSides[n] = Distance(reading.aCorners[kSides[n].nFrom], reading.aCorners[kSides[n].nTo]);
    const auto& [tLeft, tTop, tRight, tBottom] = reading.aSides;
    reading.tTiltX = TiltOf(tBottom, tTop, tMeasures.dDistance, tMeasures.dHalfSpanY);
    reading.tTiltY = TiltOf(tLeft, tRight, tMeasures.dDistance, tMeasures.dHalfSpanX);
}

UncertainNumber RollOf(const UncertainLine& tBar) {
    const double dFactor = kDegrees / (1 + tBar.dSlope * tBar.dSlope);
    return {-std::atan(tBar.dSlope) * kDegrees, dFactor * dFactor * tBar.dSlopeVariance};
}

UncertainAngles AnglesOf(const CameraReading& tMaster, const CameraReading& tSlave,
                         const ChartMeasures& tMeasures) {
    const std::array aMaster = {tMaster.tTiltX, tMaster.tTiltY, tMaster.tRoll};
    const std::array aSlave = {tSlave.tTiltX, tSlave.tTiltY, tSlave.tRoll};
    const auto adMaster = FormulaErrors(tMaster, tMeasures), adSlave = FormulaErrors(tSlave, tMeasures);
    UncertainAngles t;
    for (std::size_t n = 0; n < 3; ++n) {
        // The result keeps the formulas' error, as the library's does, so that it belongs to the uncertainty.
        const double dFormula = adSlave[n] - adMaster[n];
        t.aRaw[n] = {aSlave[n].dValue - aMaster[n].dValue,
                     aSlave[n].dVariance + aMaster[n].dVariance + dFormula * dFormula};
    }
    return t;
}

} // namespace tools

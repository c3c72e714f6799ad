#include "corners/line_fit.h"

namespace orvex {
namespace {

bool Store(std::optional<FittedLine> oLine, double* pdSlope, double* pdIntercept) {
    if (oLine && pdSlope != nullptr)
        *pdSlope = oLine->dSlope;
    if (oLine && pdIntercept != nullptr)
        *pdIntercept = oLine->dIntercept;
    return oLine.has_value();
}

} // namespace

std::optional<FittedLine> FitLine(const double* adU, const double* adV) {
    double dU = 0.0, dV = 0.0, dUU = 0.0, dUV = 0.0;
    for (int i = 0; i < nFitPoints; ++i) {
        dU += adU[i];
        dV += adV[i];
        dUU += adU[i] * adU[i];
        dUV += adU[i] * adV[i];
    }
    const double dDivisor = nFitPoints * dUU - dU * dU;
    if (dDivisor == 0.0)
        return std::nullopt;
    return FittedLine{(nFitPoints * dUV - dU * dV) / dDivisor, (dV * dUU - dU * dUV) / dDivisor};
}

bool FitLineYonX(const double* adX, const double* adY, double* pdSlope, double* pdIntercept) {
    return Store(FitLine(adX, adY), pdSlope, pdIntercept);
}

bool FitLineXonY(const double* adX, const double* adY, double* pdSlope, double* pdIntercept) {
    std::optional<FittedLine> oLine = FitLine(adY, adX);
    if (oLine)
        oLine = FittedLine{1 / oLine->dSlope, -(oLine->dIntercept / oLine->dSlope)};
    return Store(oLine, pdSlope, pdIntercept);
}

} // namespace orvex

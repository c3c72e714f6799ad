#pragma once

#include <optional>

namespace orvex {

constexpr int nFitPoints = 10;

// v = dSlope * u + dIntercept
struct FittedLine {
    double dSlope;
    double dIntercept;
};

// Least squares of v on u over ten points; nothing if all u are equal.
std::optional<FittedLine> FitLine(const double* adU, const double* adV);

// y = slope * x + intercept over ten points; false, and nothing written, if all x are equal. The outputs may
// be null.
bool FitLineYonX(const double* adX, const double* adY, double* pdSlope, double* pdIntercept);

// The fit of x on y, returned as y = slope * x + intercept; false if all y are equal. An exactly vertical
// line gives infinities.
bool FitLineXonY(const double* adX, const double* adY, double* pdSlope, double* pdIntercept);

} // namespace orvex

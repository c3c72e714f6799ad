#pragma once

#include <optional>
#include <span>
#include <vector>

namespace tools {

// Where a line across met a nearly straight one: px along it and across it.
struct LinePoint {
    double dAlong;
    double dAcross;
    double dTrust = 1; // beforehand, from 0 to 1
};

// across = dOffset + dSlope x (along - dMiddle), with variances.
struct UncertainLine {
    double dMiddle = 0, dOffset = 0, dSlope = 0;
    double dOffsetVariance = 0, dCovariance = 0, dSlopeVariance = 0;

    double At(double dAlong) const { return dOffset + dSlope * (dAlong - dMiddle); }
    double VarianceAt(double dAlong) const {
        const double d = dAlong - dMiddle;
        return dOffsetVariance + 2 * d * dCovariance + d * d * dSlopeVariance;
    }
};

struct RobustFit {
    UncertainLine tLine;
    double dScatter = 0;           // of the points about it, px
    std::vector<double> adWeights; // of each point in the end; 0: left out
    double dWeight = 0;            // of all points
    double dSquares = 0;           // weighted, of their distances from the line's middle
};

double Median(std::vector<double> ad); // of at least one

// 1.4826 times the median distance from the given middle: the standard deviation where the scatter is normal.
double RobustScatter(std::span<const double> ad, double dMiddle);

// In units of the scatter. With it the fit of undisturbed points keeps 95 % of its efficiency.
constexpr double kBiweightReach = 4.685;

// Tukey's biweight of a residual in units of the scatter: 1 in the middle, 0 from its reach on.
inline double Biweight(double dScaled) {
    const double u = dScaled / kBiweightReach, d = 1 - u * u;
    return d > 0 ? d * d : 0;
}

// Siegel's repeated medians: right while less than half of the points are wrong. The points, of which there
// are at least two, differ along the line. Without variances.
UncertainLine RepeatedMedianLine(std::span<const LinePoint> aPoints);

// By iterated reweighting with Tukey's biweight, from a line near the right one on; without variances.
// Nothing if too few points count in the end.
std::optional<RobustFit> FitRobustly(std::span<const LinePoint> aPoints, const UncertainLine& tStart);

// Fits the line anew with the weights that are there. False if too few points have one.
bool FitOnce(std::span<const LinePoint> aPoints, RobustFit& fit);

// From the scatter of the points about the line, with its correlation between neighbours.
void AddVariances(std::span<const LinePoint> aPoints, RobustFit& fit);

} // namespace tools

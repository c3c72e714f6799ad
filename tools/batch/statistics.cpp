#include "batch/statistics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace tools {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

double Over(double dSum, double dCount) {
    return dCount > 0 ? dSum / dCount : kNone;
}

double MeanOf(const std::vector<double>& a) {
    return Over(std::accumulate(a.begin(), a.end(), 0.0), static_cast<double>(a.size()));
}

double SquaresAround(double dMean, const std::vector<double>& a) {
    return std::accumulate(a.begin(), a.end(), 0.0,
                           [=](double dSum, double d) { return dSum + (d - dMean) * (d - dMean); });
}

} // namespace

Spread SpreadOf(const std::vector<double>& a) {
    if (a.empty())
        return {0, kNone, kNone, kNone, kNone};
    const double dMean = MeanOf(a);
    const auto [pLowest, pHighest] = std::ranges::minmax_element(a);
    return {a.size(), dMean, std::sqrt(Over(SquaresAround(dMean, a), static_cast<double>(a.size()) - 1)),
            *pLowest, *pHighest};
}

GaugeStudy StudyOf(const Groups& tGroups) {
    std::vector<double> aMeans;
    double dSquares = 0, dFreedom = 0, dReciprocals = 0;
    for (const auto& [strName, a] : tGroups) {
        aMeans.push_back(MeanOf(a));
        dSquares += SquaresAround(aMeans.back(), a);
        dFreedom += static_cast<double>(a.size()) - 1;
        dReciprocals += 1 / static_cast<double>(a.size());
    }
    const double dWithin = std::sqrt(Over(dSquares, dFreedom));
    const double dPerGroup = Over(static_cast<double>(aMeans.size()), dReciprocals);
    const double dOfMeans = SpreadOf(aMeans).dDeviation;
    const double dVariance = dOfMeans * dOfMeans - dWithin * dWithin / dPerGroup;
    const double dBetween = std::isnan(dVariance) ? kNone : std::sqrt(std::max(dVariance, 0.0));
    return {aMeans.size(), dPerGroup, dWithin, dBetween, std::hypot(dWithin, dBetween)};
}

} // namespace tools

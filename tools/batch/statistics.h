#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace tools {

// NaN where there are too few values to tell.
struct Spread {
    std::size_t nCount;
    double dMean;
    double dDeviation; // standard deviation with n - 1
    double dLowest, dHighest;
};

Spread SpreadOf(const std::vector<double>& a);

// Values that belong together by a name.
using Groups = std::map<std::string, std::vector<double>>;

// A gauge study of one quantity: how far measurements of one thing differ, and how far the things do.
struct GaugeStudy {
    std::size_t nGroups;
    double dPerGroup; // values per group, harmonic mean
    double dWithin;   // repeatability: sqrt(sum (x - group's mean)^2 / sum (n of the group - 1))
    double dBetween;  // sqrt(variance of the groups' means - within^2 / n), 0 if that is negative
    double dTotal;    // sqrt(within^2 + between^2)
};

GaugeStudy StudyOf(const Groups& tGroups);

} // namespace tools

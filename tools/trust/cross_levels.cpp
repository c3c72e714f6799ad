#include "trust/cross_levels.h"

#include <array>
#include <numeric>

namespace tools {
namespace {

// How many of the window's pixels have each grey level.
std::array<int, 256> CountGrey(const Picture& tPicture, const Rectangle& tWindow) {
    std::array<int, 256> anCounts = {};
    for (auto y = static_cast<std::size_t>(tWindow.dTop); y <= static_cast<std::size_t>(tWindow.dBottom); ++y)
        for (auto x = static_cast<std::size_t>(tWindow.dLeft); x <= static_cast<std::size_t>(tWindow.dRight);
             ++x)
            ++anCounts[tPicture.aGrey[y * static_cast<std::size_t>(tPicture.nColumns) + x]];
    return anCounts;
}

// The grey level that this share of the pixels does not exceed.
double Quantile(const std::array<int, 256>& anCounts, double dShare) {
    const int nAll = std::accumulate(anCounts.begin(), anCounts.end(), 0);
    std::size_t n = 0;
    for (int nBelow = anCounts[0]; nBelow < dShare * nAll; nBelow += anCounts[n])
        ++n;
    return static_cast<double>(n);
}

} // namespace

std::optional<CrossLevels> ReadCrossLevels(const Picture& tPicture, const Rectangle& tWindow) {
    if (tWindow.dLeft > tWindow.dRight || tWindow.dTop > tWindow.dBottom)
        return std::nullopt; // it misses the picture
    const std::array<int, 256> anCounts = CountGrey(tPicture, tWindow);
    return CrossLevels{Quantile(anCounts, 0.01), Quantile(anCounts, 0.5)};
}

} // namespace tools

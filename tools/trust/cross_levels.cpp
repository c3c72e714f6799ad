#include "trust/cross_levels.h"

#include "trust/tally.h"

namespace tools {
namespace {

using GreyCounts = Tally<256>;

// The grey level that this share of the pixels does not exceed.
double Quantile(const GreyCounts& tCounts, std::size_t nAll, double dShare) {
    std::size_t n = 0;
    for (std::size_t nBelow = tCounts[0]; static_cast<double>(nBelow) < dShare * static_cast<double>(nAll);
         nBelow += tCounts[n])
        ++n;
    return static_cast<double>(n);
}

} // namespace

std::optional<CrossLevels> ReadCrossLevels(const Picture& tPicture, const Rectangle& tWindow) {
    if (tWindow.dLeft > tWindow.dRight || tWindow.dTop > tWindow.dBottom)
        return std::nullopt; // it misses the picture
    const auto nFirst = static_cast<std::size_t>(tWindow.dLeft),
               nColumns = static_cast<std::size_t>(tWindow.dRight) - nFirst + 1;
    const std::span<const unsigned char> aGrey = tPicture.aGrey;
    GreyCounts tCounts;
    std::size_t nAll = 0;
    for (auto y = static_cast<std::size_t>(tWindow.dTop); y <= static_cast<std::size_t>(tWindow.dBottom);
         ++y, nAll += nColumns)
        tCounts.Add(aGrey.subspan(y * static_cast<std::size_t>(tPicture.nColumns) + nFirst, nColumns));
    return CrossLevels{Quantile(tCounts, nAll, 0.01), Quantile(tCounts, nAll, 0.5)};
}

} // namespace tools

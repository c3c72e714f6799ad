#include "trust/noise.h"

#include "trust/tally.h"

#include <cstdlib>

namespace tools {
namespace {

constexpr std::size_t kRowStep = 27; // so few rows tell it as well as all
constexpr double kNormal = 0.6745;   // median distance from the mean, in standard deviations
constexpr double kOfSecondDifference = 2.449489742783178; // sqrt(1 + 4 + 1)

// Of a pixel and the two before it, 0 to 510.
int SecondDifference(const std::vector<unsigned char>& a, std::size_t n) {
    return std::abs(a[n - 2] - 2 * a[n - 1] + a[n]);
}

} // namespace

std::optional<double> ReadNoise(const Picture& tPicture) {
    Tally<511> tCounts; // of the second differences
    std::size_t nAll = 0;
    const auto nColumns = static_cast<std::size_t>(tPicture.nColumns);
    for (std::size_t nRow = 0; nRow < tPicture.aGrey.size(); nRow += kRowStep * nColumns)
        for (std::size_t n = nRow + 2; n < nRow + nColumns; ++n, ++nAll)
            tCounts.Add(n, static_cast<std::size_t>(SecondDifference(tPicture.aGrey, n)));
    if (nAll == 0)
        return std::nullopt;
    // The median, as if the whole numbers were spread evenly around themselves; those around 0 lie on one
    // side only.
    std::size_t n = 0, nBelow = 0;
    while (2 * (nBelow + tCounts[n]) <= nAll)
        nBelow += tCounts[n++];
    const double dShare =
        (0.5 * static_cast<double>(nAll) - static_cast<double>(nBelow)) / static_cast<double>(tCounts[n]);
    const double dMedian = n == 0 ? 0.5 * dShare : static_cast<double>(n) - 0.5 + dShare;
    return dMedian / kNormal / kOfSecondDifference;
}

} // namespace tools

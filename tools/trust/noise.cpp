#include "trust/noise.h"

#include "trust/tally.h"

#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

namespace tools {
namespace {

constexpr std::size_t kRowStep = 27; // so few rows tell it as well as all
constexpr double kNormal = 0.6745;   // median distance from the mean, in standard deviations
constexpr double kOfSecondDifference = 2.449489742783178; // sqrt(1 + 4 + 1)

// Of each pixel and the next two, 0 to 510.
std::vector<std::uint16_t> SecondDifferences(std::span<const unsigned char> aRow) {
    std::vector<std::uint16_t> a(aRow.size() < 2 ? 0 : aRow.size() - 2);
    for (std::size_t n = 0; n < a.size(); ++n)
        a[n] = static_cast<std::uint16_t>(std::abs(aRow[n] - 2 * aRow[n + 1] + aRow[n + 2]));
    return a;
}

} // namespace

std::optional<double> ReadNoise(const Picture& tPicture) {
    Tally<511> tCounts; // of the second differences
    std::size_t nAll = 0;
    const std::span<const unsigned char> aGrey = tPicture.aGrey;
    const auto nColumns = static_cast<std::size_t>(tPicture.nColumns);
    for (std::size_t nRow = 0; nRow < aGrey.size(); nRow += kRowStep * nColumns) {
        const std::vector<std::uint16_t> a = SecondDifferences(aGrey.subspan(nRow, nColumns));
        tCounts.Add(std::span(a));
        nAll += a.size();
    }
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

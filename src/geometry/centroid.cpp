#include "geometry/centroid.h"

#include "core/to_integer.h"

#include <cmath>

namespace orvex {
namespace {

constexpr int nMostRounds = 7;
constexpr double dConverged = 0.01;  // px
constexpr double dSparseLine = 20.0; // dark pixels of a line that still belongs to the crossing bar only

// Half of a round's range: the whole extent in the first round, half of it in the second, then a third.
double HalfRange(double dExtent, int nRound) {
    if (nRound == 1)
        return 0.5 * dExtent;
    return nRound == 2 ? 0.25 * dExtent : dExtent / 6;
}

// Entries from the truncated lower bound up to, without, the truncated upper bound.
Range EntriesAround(double dCentre, double dHalfRange) {
    return {ToInt(dCentre - dHalfRange), std::int64_t{ToInt(dCentre + dHalfRange)} - 1};
}

Range InsideOf(std::span<const double> ad, Range t) {
    return t.ClippedTo({0, static_cast<std::int64_t>(ad.size()) - 1});
}

double Centroid(std::span<const double> ad, Range tEntries) {
    double dMoment = 0.0, dCount = 0.0;
    const Range t = InsideOf(ad, tEntries);
    for (std::int64_t i = t.nFirst; i <= t.nLast; ++i) {
        const double dEntry = ad[static_cast<std::size_t>(i)];
        dMoment += dEntry * static_cast<double>(i);
        dCount += dEntry;
    }
    return static_cast<float>(dMoment / dCount);
}

} // namespace

Centre RefineByCentroids(std::span<const double> adColumns, std::span<const double> adRows,
                         CentroidExtents tExtents, Centre tCoarse) {
    // The first round is compared with the origin, so it can only end the search there.
    Centre tPrevious = {0.0, 0.0};
    Centre t = tCoarse;
    for (int nRound = 1; nRound <= nMostRounds; ++nRound) {
        t = {Centroid(adColumns, EntriesAround(t.dX, HalfRange(tExtents.dX, nRound))),
             Centroid(adRows, EntriesAround(t.dY, HalfRange(tExtents.dY, nRound)))};
        if (std::fabs(tPrevious.dY - t.dY) < dConverged && std::fabs(tPrevious.dX - t.dX) < dConverged)
            break;
        tPrevious = t;
    }
    return t;
}

Range FindBarBand(std::span<const double> adHistogram, double dCentre, double dExtent) {
    const auto IsBar = [&](std::int64_t i) { return adHistogram[static_cast<std::size_t>(i)] > dSparseLine; };
    Range t = InsideOf(adHistogram, EntriesAround(dCentre, dExtent / 3));
    t.nFirst = std::max<std::int64_t>(t.nFirst, 1);
    return Trimmed(t, IsBar);
}

} // namespace orvex

#include "geometry/dark_run.h"

#include "core/to_integer.h"

namespace orvex {
namespace {

// Distance from a dark pixel to the edge between it and its outer neighbour, px.
double EdgeDistance(GreyLine tLine, std::int64_t nDark, std::int64_t nNeighbour, double dThreshold) {
    if (nNeighbour < 0 || nNeighbour >= tLine.nLength)
        return 0.0;
    const int nRise = tLine.tPixels[nNeighbour] - tLine.tPixels[nDark];
    return nRise == 0 ? 0.0 : (dThreshold - tLine.tPixels[nDark]) / nRise;
}

} // namespace

std::optional<double> DarkRunCentre(GreyLine tLine, Range tRange, double dThreshold) {
    const int nThreshold = ToInt(dThreshold);
    const auto IsDark = [&](std::int64_t n) { return tLine.tPixels[n] <= nThreshold; };
    const Range t = Trimmed(tRange, IsDark);
    if (t.IsEmpty())
        return std::nullopt;
    const double dLeading =
        static_cast<double>(t.nFirst) - EdgeDistance(tLine, t.nFirst, t.nFirst - 1, dThreshold);
    const double dTrailing =
        static_cast<double>(t.nLast) + EdgeDistance(tLine, t.nLast, t.nLast + 1, dThreshold);
    return (dLeading + dTrailing) * 0.5;
}

} // namespace orvex

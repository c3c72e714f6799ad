#include "reading/soundness.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// Calls for all half sides and both bars.
template <typename Call>
void ForEachLine(const CameraReading& reading, Call Use) {
    for (const auto& aHalves : reading.aaHalves)
        for (const LineReading& t : aHalves)
            Use(t);
    Use(reading.tHorizontalBar);
    Use(reading.tVerticalBar);
}

double LeastUsed(const CameraReading& reading) {
    double d = 100;
    ForEachLine(reading, [&](const LineReading& t) { d = std::min(d, 100.0 * t.nUsed / t.nLines); });
    return d;
}

// Where the two halves of a side meet.
double LargestGap(const CameraReading& reading) {
    double d = 0;
    for (const auto& [tOne, tOther] : reading.aaHalves)
        d = std::max(d, std::fabs(tOne.tLine.At(tOne.tAlong.dLast) - tOther.tLine.At(tOne.tAlong.dLast)));
    return d;
}

// Of opposite sides, each against its length, so that perspective does not count.
double WidthSpread(const CameraReading& reading, std::size_t nSide) {
    double dLeast = 1, dMost = 0;
    for (const std::size_t n : {nSide, nSide + 2})
        for (const LineReading& t : reading.aaHalves[n]) {
            dLeast = std::min(dLeast, t.dWidth / std::pow(reading.aSides[n].dValue, 2));
            dMost = std::max(dMost, t.dWidth / std::pow(reading.aSides[n].dValue, 2));
        }
    return 200 * (dMost - dLeast) / (dMost + dLeast);
}

double LargestLightStep(const CameraReading& reading) {
    double d = 0;
    ForEachLine(reading, [&](const LineReading& t) { d = std::max(d, 100 * t.dLightStep / t.dContrast); });
    return d;
}

} // namespace

Soundness SoundnessOf(const CameraReading& reading) {
    return {LeastUsed(reading), LargestGap(reading),
            std::max(WidthSpread(reading, 0), WidthSpread(reading, 1)), LargestLightStep(reading)};
}

} // namespace tools

#include "reading/soundness.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// Where the two halves of a side meet.
double Gap(const CameraReading& reading, std::size_t nSide) {
    const LineReading &tOne = reading.aLines[HalfSide(nSide, 0)],
                      &tOther = reading.aLines[HalfSide(nSide, 1)];
    return std::fabs(tOne.tLine.At(tOne.tAlong.dLast) - tOther.tLine.At(tOne.tAlong.dLast));
}

// Of opposite sides, each against its length's square, so that perspective does not count.
double WidthSpread(const CameraReading& reading, std::size_t nSide) {
    std::vector<double> ad;
    for (const std::size_t n : {nSide, nSide + 2})
        for (const std::size_t nEnd : {0u, 1u})
            ad.push_back(reading.aLines[HalfSide(n, nEnd)].dWidth / std::pow(reading.aSides[n].dValue, 2));
    const auto [pLeast, pMost] = std::ranges::minmax_element(ad);
    return 200 * (*pMost - *pLeast) / (*pMost + *pLeast);
}

} // namespace

Soundness SoundnessOf(const CameraReading& reading) {
    const auto Used = [](const LineReading& t) { return 100.0 * t.nUsed / t.nLines; };
    const auto LightStep = [](const LineReading& t) { return 100 * t.dLightStep / t.dContrast; };
    const auto& a = reading.aLines;
    const auto pCovered = std::ranges::min_element(a, {}, Used),
               pLit = std::ranges::max_element(a, {}, LightStep);
    std::size_t nBroken = 0;
    for (std::size_t n = 1; n < kSides.size(); ++n)
        nBroken = Gap(reading, n) > Gap(reading, nBroken) ? n : nBroken;
    return {static_cast<std::size_t>(pCovered - a.begin()),
            nBroken,
            static_cast<std::size_t>(pLit - a.begin()),
            Used(*pCovered),
            Gap(reading, nBroken),
            std::max(WidthSpread(reading, 0), WidthSpread(reading, 1)),
            LightStep(*pLit)};
}

} // namespace tools

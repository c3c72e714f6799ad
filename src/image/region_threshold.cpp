#include "image/region_threshold.h"

#include "image/level_count.h"

#include <array>
#include <numeric>
#include <optional>

namespace orvex {
namespace {

using Histogram = std::array<std::uint32_t, 256>;

// A dark level above this share of the bright level is no ink: the threshold is then capped to the share.
constexpr double dHighestDarkShare = 0.45;

// Of one pixel in nStep, each row's a few columns beside those of the row before it.
Histogram HistogramOf(PlaneView tGrey, Rect t, std::int64_t nStep) {
    Histogram an = {};
    for (std::int64_t y = t.tRows.nFirst; y <= t.tRows.nLast; ++y)
        for (std::int64_t x = t.tColumns.nFirst + (y - t.tRows.nFirst) * 5 % nStep; x <= t.tColumns.nLast;
             x += nStep)
            ++an[static_cast<std::size_t>(tGrey.Row(y)[x])];
    return an;
}

// One of the two ends from which levels are counted, so that both are counted upward: 0 is the end's own
// level.
struct End {
    bool bBright;
    double dFraction;

    int Level(int n) const { return bBright ? 255 - n : n; }
};

// The first level from the end up to which more than the end's share of all pixels lie.
std::optional<int> LevelBeyond(const Histogram& an, End tEnd) {
    const double dPixels = std::accumulate(an.begin(), an.end(), std::uint32_t{0}) * tEnd.dFraction;
    std::uint32_t nCount = 0;
    for (int n = 0; n < 256; ++n) {
        nCount += an[static_cast<std::size_t>(tEnd.Level(n))];
        if (nCount > dPixels)
            return n;
    }
    return std::nullopt;
}

// That level, if it lies within a few levels of the guess: the first whose count is beyond the share. To
// count up to one level takes a small part of the time that a histogram takes.
std::optional<int> LevelBeyondNear(PlaneView tGrey, Rect t, std::uint32_t nPixels, End tEnd, int nGuess) {
    constexpr int nMostSteps = 4;
    for (int i = 0, n = nGuess; i < nMostSteps && n >= 0 && n <= 255; ++i) {
        const LevelCount tCount = CountAtLevel(tGrey, t, static_cast<unsigned char>(tEnd.Level(n)));
        const std::uint32_t nUpTo = tEnd.bBright ? nPixels - tCount.nBelow : tCount.nUpTo;
        const std::uint32_t nBefore = tEnd.bBright ? nPixels - tCount.nUpTo : tCount.nBelow;
        const double dShare = nPixels * tEnd.dFraction;
        if (nUpTo > dShare && (n == 0 || !(nBefore > dShare)))
            return n;
        n += nUpTo > dShare ? -1 : 1;
    }
    return std::nullopt;
}

struct Levels {
    std::optional<int> oDark, oBright;
};

// A sample of the pixels tells about where the levels are. Where they are not, or there are few pixels, all
// are sorted into a histogram.
Levels LevelsOf(PlaneView tGrey, Rect t, std::uint32_t nPixels, End tDark, End tBright) {
    constexpr std::uint32_t nFewPixels = 4096;
    constexpr std::int64_t nSampleStep = 32;
    std::optional<int> oDark, oBright;
    if (nPixels >= nFewPixels) {
        const Histogram anSample = HistogramOf(tGrey, t, nSampleStep);
        oDark = LevelBeyond(anSample, tDark);
        oBright = LevelBeyond(anSample, tBright);
        if (oDark)
            oDark = LevelBeyondNear(tGrey, t, nPixels, tDark, *oDark);
        if (oBright)
            oBright = LevelBeyondNear(tGrey, t, nPixels, tBright, *oBright);
    }
    if (!oDark || !oBright) {
        const Histogram an = HistogramOf(tGrey, t, 1);
        oDark = LevelBeyond(an, tDark);
        oBright = LevelBeyond(an, tBright);
    }
    return {oDark, oBright};
}

} // namespace

bool CalcRegionThreshold(const unsigned char* pGray, int nStride, int nX1, int nY1, int nX2, int nY2,
                         double dDarkFraction, double dBrightFraction, double dBlend, double* pdThreshold) {
    const Rect tRect = {{nX1, nX2}, {nY1, nY2}};
    if (tRect.IsEmpty())
        return false;
    const auto nPixels =
        static_cast<std::uint32_t>((std::int64_t{nX2} - nX1 + 1) * (std::int64_t{nY2} - nY1 + 1));
    const Levels t =
        LevelsOf({pGray, {nStride, 0}}, tRect, nPixels, {false, dDarkFraction}, {true, dBrightFraction});
    if (!t.oDark || !t.oBright || *t.oDark > 255 - *t.oBright)
        return false;
    const double dDark = *t.oDark, dBright = 255 - *t.oBright;
    const double dCap = dHighestDarkShare * dBright;
    if (pdThreshold != nullptr)
        *pdThreshold = dCap < dDark ? dCap : dDark + (dBright - dDark) * dBlend;
    return true;
}

} // namespace orvex

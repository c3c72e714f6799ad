#include "corners/frame_side.h"

#include "core/to_integer.h"
#include "corners/dark_count_drop.h"
#include "corners/stripe_centre.h"

namespace orvex {
namespace {

constexpr int nClearance = 5; // px between the other side's edge and the first stripe

// Stripe i holds the lines nFirst + i * nStep to nFirst + (i + 1) * nStep.
struct Stripes {
    int nFirst;
    int nStep;
};

// The scan always ends one line before the centre, also where it comes from behind it. A scan that would
// leave the picture finds nothing.
std::optional<int> FindSideStart(PlaneView tBinary, const SideSearch& t) {
    const Range tAlong = t.bHorizontal ? tBinary.tSize.Columns() : tBinary.tSize.Rows();
    const Range tAcross = t.bHorizontal ? tBinary.tSize.Rows() : tBinary.tSize.Columns();
    const std::int64_t nTarget = t.nCentre - 1;
    if (!tAlong.Contains(Between(t.nStart, nTarget)) || !tAcross.Contains(t.tBand))
        return std::nullopt;
    const int nFrom = static_cast<int>(t.nStart), nTo = static_cast<int>(nTarget);
    const int nBandFirst = static_cast<int>(t.tBand.nFirst), nBandLast = static_cast<int>(t.tBand.nLast);
    int nLine = 0;
    const bool bFound = t.bHorizontal ? FindDarkCountDrop(tBinary.pPixels, tBinary.tSize.nWidth, nFrom,
                                                          nBandFirst, nTo, nBandLast, false, &nLine)
                                      : FindDarkCountDrop(tBinary.pPixels, tBinary.tSize.nWidth, nBandFirst,
                                                          nFrom, nBandLast, nTo, true, &nLine);
    return bFound ? std::optional(nLine) : std::nullopt;
}

Stripes StripesOf(int nSideStart, const SideSearch& t) {
    const int nCentre = static_cast<int>(t.nCentre);
    const int nFrom = t.bFromCentre ? nCentre : nSideStart + nClearance;
    const int nTo = t.bFromCentre ? nSideStart - nClearance : nCentre;
    return {nFrom, ToInt((nTo - nFrom) / static_cast<double>(nFitPoints))};
}

bool MeasureStripe(PlaneView tGrey, const SideSearch& t, int nFirst, int nLast, double* pdX, double* pdY) {
    const int nBandFirst = static_cast<int>(t.tBand.nFirst), nBandLast = static_cast<int>(t.tBand.nLast);
    const auto [nColumns, nRows] = tGrey.tSize;
    return t.bHorizontal ? MeasureStripeLineCentre(tGrey.pPixels, nColumns, nRows, nFirst, nBandFirst, nLast,
                                                   nBandLast, true, pdX, pdY, t.dThreshold)
                         : MeasureStripeLineCentre(tGrey.pPixels, nColumns, nRows, nBandFirst, nFirst,
                                                   nBandLast, nLast, false, pdX, pdY, t.dThreshold);
}

} // namespace

SideResult MeasureSide(PlaneView tBinary, PlaneView tGrey, const SideSearch& tSearch, SidePoints* ptPoints) {
    const std::optional<int> oStart = FindSideStart(tBinary, tSearch);
    if (!oStart)
        return SideResult::NoSide;
    const Stripes t = StripesOf(*oStart, tSearch);
    if (t.nStep <= 0)
        return SideResult::NoSide;
    for (int i = 0; i < nFitPoints; ++i)
        if (!MeasureStripe(tGrey, tSearch, t.nFirst + i * t.nStep, t.nFirst + (i + 1) * t.nStep,
                           &ptPoints->adX[i], &ptPoints->adY[i]))
            return SideResult::NoStripe;
    return SideResult::Found;
}

} // namespace orvex

#include "corners/frame_side.h"

#include "core/line_scan.h"
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

// The scan always ends one line before the centre, also where it comes from behind it.
std::optional<int> FindSideStart(PlaneView tBinary, const SideSearch& t) {
    const LineScan tScan = {!t.bHorizontal, t.tBand, t.nStart, t.nCentre - 1, true};
    const std::optional<ScanBounds> o = BoundsInside(tBinary.tSize, tScan);
    int nLine = 0;
    if (!o || !FindDarkCountDrop(tBinary.pPixels, tBinary.tSize.nWidth, o->nX1, o->nY1, o->nX2, o->nY2,
                                 tScan.bRowLines, &nLine))
        return std::nullopt;
    return nLine;
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

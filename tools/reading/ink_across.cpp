#include "reading/ink_across.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// First and last sample.
struct Samples {
    int nFirst, nLast;
    bool LieIn(const AxisView& t) const { return nFirst >= 0 && nFirst <= nLast && nLast < t.nAcross; }
};

int Up(double d) {
    return static_cast<int>(std::ceil(d));
}
int Down(double d) {
    return static_cast<int>(std::floor(d));
}

double Mean(const AxisView& tView, int nLine, Samples t) {
    double dSum = 0;
    for (int n = t.nFirst; n <= t.nLast; ++n)
        dSum += tView.At(nLine, n);
    return dSum / (t.nLast - t.nFirst + 1);
}

// Smoothed by weights of 1, 2 and 1: costs no sharpness that noise would leave, and halves what the edge's
// place between the pixels does to it.
double Smoothed(const AxisView& t, int nLine, int n) {
    return (t.At(nLine, n - 1) + 2 * t.At(nLine, n) + t.At(nLine, n + 1)) / 4;
}

// Where the light passes a level on the way from one sample, which is below it, to another.
std::optional<double> EdgeBetween(const AxisView& tView, int nLine, Samples tWay, double dLevel) {
    const int nStep = tWay.nFirst < tWay.nLast ? 1 : -1;
    double dInside = Smoothed(tView, nLine, tWay.nFirst);
    if (dInside > dLevel)
        return std::nullopt;
    for (int n = tWay.nFirst + nStep; n != tWay.nLast; n += nStep) {
        const double dNext = Smoothed(tView, nLine, n);
        if (dNext > dLevel)
            return n - nStep * (dNext - dLevel) / (dNext - dInside);
        dInside = dNext;
    }
    return std::nullopt;
}

// Light that is missing from a place between the samples to the last or the first one, in samples' worth of
// paper.
double MissingLight(const AxisView& tView, int nLine, double dFrom, int nTo, double dPaper) {
    const int nStep = nTo > dFrom ? 1 : -1, nSplit = static_cast<int>(std::lround(dFrom));
    double dSum = (0.5 + nStep * (nSplit - dFrom)) * (dPaper - tView.At(nLine, nSplit));
    for (int n = nSplit + nStep; n != nTo + nStep; n += nStep)
        dSum += dPaper - tView.At(nLine, n);
    return dSum;
}

} // namespace

std::optional<InkAcross> FindInk(const AxisView& tView, int nLine, double dMiddle, double dReach) {
    const Samples t = {std::max(Up(dMiddle - dReach), 1),
                       std::min(Down(dMiddle + dReach), tView.nAcross - 2)};
    if (nLine < 0 || nLine >= tView.nAlong || t.nLast - t.nFirst < 4)
        return std::nullopt;
    int nDarkest = t.nFirst;
    for (int n = t.nFirst; n <= t.nLast; ++n)
        if (Smoothed(tView, nLine, n) < Smoothed(tView, nLine, nDarkest))
            nDarkest = n;
    // Most of the samples are paper.
    const double dDark = Smoothed(tView, nLine, nDarkest), dPaper = Mean(tView, nLine, t);
    if (dPaper - dDark < kLeastStep)
        return std::nullopt;
    const auto oFirst = EdgeBetween(tView, nLine, {nDarkest, t.nFirst - 1}, (dDark + dPaper) / 2);
    const auto oLast = EdgeBetween(tView, nLine, {nDarkest, t.nLast + 1}, (dDark + dPaper) / 2);
    if (!oFirst || !oLast)
        return std::nullopt;
    const double dCentre = (*oFirst + *oLast) / 2, dWidth = *oLast - *oFirst;
    return InkAcross{dCentre, dWidth, dCentre, dWidth, dDark, dPaper, dPaper};
}

std::optional<InkAcross> ReadInk(const AxisView& tView, int nLine, double dMiddle, double dWidth) {
    const double dClear = dWidth / 2 + std::max(4.0, 0.6 * dWidth); // of the edges' blur
    const double dEnd = dClear + std::max(4.0, 0.6 * dWidth);
    const Samples tInk = {Up(dMiddle - dWidth / 4), Down(dMiddle + dWidth / 4)};
    const Samples tBefore = {Up(dMiddle - dEnd), Down(dMiddle - dClear)};
    const Samples tAfter = {Up(dMiddle + dClear), Down(dMiddle + dEnd)};
    if (nLine < 0 || nLine >= tView.nAlong || !tInk.LieIn(tView) || !tBefore.LieIn(tView) ||
        !tAfter.LieIn(tView))
        return std::nullopt;
    const double dDark = Mean(tView, nLine, tInk);
    const double dBefore = Mean(tView, nLine, tBefore), dAfter = Mean(tView, nLine, tAfter);
    if (std::min(dBefore, dAfter) - dDark < kLeastStep)
        return std::nullopt;
    const auto oFirst = EdgeBetween(tView, nLine, {tInk.nFirst, tBefore.nLast}, (dDark + dBefore) / 2);
    const auto oLast = EdgeBetween(tView, nLine, {tInk.nLast, tAfter.nFirst}, (dDark + dAfter) / 2);
    if (!oFirst || !oLast)
        return std::nullopt;
    const double dBehind = MissingLight(tView, nLine, dMiddle, tAfter.nFirst - 1, dAfter) / (dAfter - dDark);
    const double dAhead = MissingLight(tView, nLine, dMiddle, tBefore.nLast + 1, dBefore) / (dBefore - dDark);
    return InkAcross{(*oFirst + *oLast) / 2,
                     *oLast - *oFirst,
                     dMiddle + (dBehind - dAhead) / 2,
                     dBehind + dAhead,
                     dDark,
                     dBefore,
                     dAfter};
}

} // namespace tools

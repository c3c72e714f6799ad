#include "reading/ink_across.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// First and last sample.
struct Samples {
    int nFirst, nLast;
    int Count() const { return nLast - nFirst + 1; }
    bool LieIn(const AxisView& t) const { return nFirst >= 0 && nFirst <= nLast && nLast < t.nAcross; }
};

// All samples from one place to another.
Samples Within(double dFirst, double dLast) {
    return {static_cast<int>(std::ceil(dFirst)), static_cast<int>(std::floor(dLast))};
}

int Sum(LineAcross tLine, Samples t) {
    int nSum = 0;
    for (int n = t.nFirst; n <= t.nLast; ++n)
        nSum += tLine[n];
    return nSum;
}

double Mean(LineAcross tLine, Samples t) {
    return static_cast<double>(Sum(tLine, t)) / t.Count();
}

// Smoothed by weights of 1, 2 and 1: costs no sharpness that noise would leave, and halves what the edge's
// place between the pixels does to it.
double Smoothed(LineAcross t, int n) {
    return (t[n - 1] + 2 * t[n] + t[n + 1]) / 4.0;
}

// Where the light passes a level on the way from one sample, which is below it, to another.
std::optional<double> EdgeBetween(LineAcross tLine, Samples tWay, double dLevel) {
    const int nStep = tWay.nFirst < tWay.nLast ? 1 : -1;
    double dInside = Smoothed(tLine, tWay.nFirst);
    if (dInside > dLevel)
        return std::nullopt;
    for (int n = tWay.nFirst + nStep; n != tWay.nLast; n += nStep) {
        const double dNext = Smoothed(tLine, n);
        if (dNext > dLevel)
            return n - nStep * (dNext - dLevel) / (dNext - dInside);
        dInside = dNext;
    }
    return std::nullopt;
}

// What light the samples miss against paper.
double Missing(LineAcross tLine, Samples t, double dPaper) {
    return t.Count() * dPaper - Sum(tLine, t);
}

} // namespace

std::optional<InkAcross> FindInk(const AxisView& tView, int nLine, double dMiddle, double dReach) {
    const Samples t =
        Within(std::max(dMiddle - dReach, 1.0), std::min(dMiddle + dReach, tView.nAcross - 2.0));
    if (!tView.HasLine(nLine) || t.nLast - t.nFirst < 4)
        return std::nullopt;
    const LineAcross tLine = tView.Line(nLine);
    int nDarkest = t.nFirst;
    double dDark = Smoothed(tLine, nDarkest);
    for (int n = t.nFirst + 1; n <= t.nLast; ++n)
        if (const double d = Smoothed(tLine, n); d < dDark) {
            nDarkest = n;
            dDark = d;
        }
    const double dPaper = Mean(tLine, t); // most of the samples are
    if (dPaper - dDark < kLeastStep)
        return std::nullopt;
    const auto oFirst = EdgeBetween(tLine, {nDarkest, t.nFirst - 1}, (dDark + dPaper) / 2);
    const auto oLast = EdgeBetween(tLine, {nDarkest, t.nLast + 1}, (dDark + dPaper) / 2);
    if (!oFirst || !oLast)
        return std::nullopt;
    const double dCentre = (*oFirst + *oLast) / 2, dWidth = *oLast - *oFirst;
    return InkAcross{nLine, dCentre, dWidth, dCentre, dWidth, dDark, dPaper, dPaper};
}

std::optional<InkAcross> ReadInk(const AxisView& tView, int nLine, double dMiddle, double dWidth) {
    const double dClear = dWidth / 2 + std::max(4.0, 0.6 * dWidth); // of the edges' blur
    const double dEnd = dClear + std::max(4.0, 1.2 * dWidth);       // long enough that its noise adds little
    const Samples tInk = Within(dMiddle - dWidth / 4, dMiddle + dWidth / 4);
    const Samples tBefore = Within(dMiddle - dEnd, dMiddle - dClear);
    const Samples tAfter = Within(dMiddle + dClear, dMiddle + dEnd);
    if (!tView.HasLine(nLine) || !tInk.LieIn(tView) || !tBefore.LieIn(tView) || !tAfter.LieIn(tView))
        return std::nullopt;
    const LineAcross tLine = tView.Line(nLine);
    const double dDark = Mean(tLine, tInk);
    const double dBefore = Mean(tLine, tBefore), dAfter = Mean(tLine, tAfter);
    if (std::min(dBefore, dAfter) - dDark < kLeastStep)
        return std::nullopt;
    const auto oFirst = EdgeBetween(tLine, {tInk.nFirst, tBefore.nLast}, (dDark + dBefore) / 2);
    const auto oLast = EdgeBetween(tLine, {tInk.nLast, tAfter.nFirst}, (dDark + dAfter) / 2);
    if (!oFirst || !oLast)
        return std::nullopt;
    // The ink on both sides of the expected middle as wide as the light that is missing there.
    const int nMiddle = static_cast<int>(std::lround(dMiddle));
    const double dSplit = dMiddle - nMiddle, dInk = tLine[nMiddle];
    const double dAhead =
        (Missing(tLine, {tBefore.nLast + 1, nMiddle - 1}, dBefore) + (0.5 + dSplit) * (dBefore - dInk)) /
        (dBefore - dDark);
    const double dBehind =
        (Missing(tLine, {nMiddle + 1, tAfter.nFirst - 1}, dAfter) + (0.5 - dSplit) * (dAfter - dInk)) /
        (dAfter - dDark);
    const double dCentre = (*oFirst + *oLast) / 2, dByLight = dMiddle + (dBehind - dAhead) / 2;
    return InkAcross{nLine, dCentre, *oLast - *oFirst, dByLight, dBehind + dAhead, dDark, dBefore, dAfter};
}

} // namespace tools

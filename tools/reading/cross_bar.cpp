#include "reading/cross_bar.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

constexpr int kProbes = 24;       // from the middle towards the frame
constexpr double kShortest = 0.3; // of what lies between the frame's sides
constexpr double kAway = 1.5;     // widths of the line from the expected place: beyond it is no bar
constexpr double kOther = 1.5;    // widths of the other bar: so far from the middle it is in the way

// How far the bar reaches from the middle, beyond dFirst, px: to where the most probes before it show ink and
// the fewest behind it.
double ReachOf(const AxisView& tView, const RoughLine& t, double dWay, double dFirst) {
    int nInk = 0, nMost = 0;
    double dReach = 0;
    for (int i = 0; i < kProbes; ++i) {
        const double dFromMiddle = dFirst + (std::fabs(dWay) - dFirst) * (i + 0.5) / kProbes;
        const double dAlong = t.tLine.dMiddle + std::copysign(dFromMiddle, dWay);
        const auto o = FindInk(tView, static_cast<int>(dAlong), t.tLine.At(dAlong), 3 * t.dWidth);
        nInk += o && std::fabs(o->dCentre - t.tLine.At(dAlong)) < kAway * t.dWidth ? 1 : -1;
        if (nInk > nMost) {
            nMost = nInk;
            dReach = dFromMiddle;
        }
    }
    return dReach;
}

} // namespace

std::optional<LineCentres> ReadBar(const AxisView& tView, const RoughLine& tExpected, double dHalf,
                                   double dOther) {
    const double dClear = kOther * dOther;
    const double dMiddle = tExpected.tLine.dMiddle, dWay = dHalf - 2 * tExpected.dWidth;
    const Stretch tAlong = {dMiddle - ReachOf(tView, tExpected, -dWay, dClear) + tExpected.dWidth,
                            dMiddle + ReachOf(tView, tExpected, dWay, dClear) - tExpected.dWidth};
    if (tAlong.dLast - tAlong.dFirst < kShortest * dHalf)
        return std::nullopt;
    const auto oRough =
        ReadRoughly(tView, tAlong, tExpected.tLine, kAway * tExpected.dWidth + tExpected.dWidth);
    if (!oRough)
        return std::nullopt;
    return ReadCentres(tView, tAlong, {oRough->tLine, tExpected.dWidth},
                       Stretch{dMiddle - dClear, dMiddle + dClear});
}

} // namespace tools

#include "chart/ink.h"

#include <algorithm>

namespace chart {

namespace {

Rectangle Sized(double dHalfX, double dHalfY) {
    return {std::max(dHalfX, 0.0), std::max(dHalfY, 0.0)};
}

Rectangle Common(const Rectangle& a, const Rectangle& b) {
    return {std::min(a.dHalfX, b.dHalfX), std::min(a.dHalfY, b.dHalfY)};
}

// The part of a rectangle that the frame's line does not cover already: inside the frame, and beyond it for
// a rectangle that reaches so far.
void AddBesideFrame(std::vector<InkPatch>& aPatches, const Ink& tInk, const Rectangle& t, int nWeight) {
    aPatches.push_back({Common(t, tInk.tFrameInner), nWeight});
    const bool bReachesBeyond = t.dHalfX > tInk.tFrameOuter.dHalfX || t.dHalfY > tInk.tFrameOuter.dHalfY;
    if (!bReachesBeyond)
        return;
    aPatches.push_back({t, nWeight});
    aPatches.push_back({Common(t, tInk.tFrameOuter), -nWeight});
}

} // namespace

Ink InkOf(const Chart& tChart) {
    const double dHalfLine = std::max(tChart.dFrameLineWidth, 0.0) / 2;
    return {Sized(tChart.dFrameHalfWidth + dHalfLine, tChart.dFrameHalfHeight + dHalfLine),
            Sized(tChart.dFrameHalfWidth - dHalfLine, tChart.dFrameHalfHeight - dHalfLine),
            Sized(tChart.dHorizontalBarHalfLength, tChart.dHorizontalBarWidth / 2),
            Sized(tChart.dVerticalBarWidth / 2, tChart.dVerticalBarHalfLength)};
}

std::vector<InkPatch> InkPatches(const Ink& tInk) {
    std::vector<InkPatch> aPatches = {{tInk.tFrameOuter, 1}, {tInk.tFrameInner, -1}};
    AddBesideFrame(aPatches, tInk, tInk.tHorizontalBar, 1);
    AddBesideFrame(aPatches, tInk, tInk.tVerticalBar, 1);
    AddBesideFrame(aPatches, tInk, Common(tInk.tHorizontalBar, tInk.tVerticalBar), -1);
    return aPatches;
}

} // namespace chart

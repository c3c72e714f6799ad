#include "chart/ink.h"

#include <algorithm>

namespace chart {

namespace {

InkPatch Rectangle(double dHalfX, double dHalfY) {
    return {std::max(dHalfX, 0.0), std::max(dHalfY, 0.0), 1};
}

InkPatch Common(const InkPatch& a, const InkPatch& b) {
    return {std::min(a.dHalfX, b.dHalfX), std::min(a.dHalfY, b.dHalfY), 1};
}

struct Frame {
    InkPatch tOuter;
    InkPatch tInner;
};

Frame FrameOf(const Chart& tChart) {
    const double dHalfLine = std::max(tChart.dFrameLineWidth, 0.0) / 2;
    return {Rectangle(tChart.dFrameHalfWidth + dHalfLine, tChart.dFrameHalfHeight + dHalfLine),
            Rectangle(tChart.dFrameHalfWidth - dHalfLine, tChart.dFrameHalfHeight - dHalfLine)};
}

void Add(std::vector<InkPatch>& aPatches, InkPatch tPatch, int nWeight) {
    tPatch.nWeight = nWeight;
    aPatches.push_back(tPatch);
}

// The part of a rectangle that the frame's line does not cover already: inside the frame, and beyond it for
// a rectangle that reaches so far.
void AddBesideFrame(std::vector<InkPatch>& aPatches, const Frame& tFrame, const InkPatch& tPatch,
                    int nWeight) {
    Add(aPatches, Common(tPatch, tFrame.tInner), nWeight);
    const bool bReachesBeyond = tPatch.dHalfX > tFrame.tOuter.dHalfX || tPatch.dHalfY > tFrame.tOuter.dHalfY;
    if (!bReachesBeyond)
        return;
    Add(aPatches, tPatch, nWeight);
    Add(aPatches, Common(tPatch, tFrame.tOuter), -nWeight);
}

} // namespace

std::vector<InkPatch> InkPatches(const Chart& tChart) {
    const Frame tFrame = FrameOf(tChart);
    const InkPatch tHorizontal = Rectangle(tChart.dHorizontalBarHalfLength, tChart.dHorizontalBarWidth / 2);
    const InkPatch tVertical = Rectangle(tChart.dVerticalBarWidth / 2, tChart.dVerticalBarHalfLength);

    std::vector<InkPatch> aPatches;
    Add(aPatches, tFrame.tOuter, 1);
    Add(aPatches, tFrame.tInner, -1);
    AddBesideFrame(aPatches, tFrame, tHorizontal, 1);
    AddBesideFrame(aPatches, tFrame, tVertical, 1);
    AddBesideFrame(aPatches, tFrame, Common(tHorizontal, tVertical), -1);
    return aPatches;
}

} // namespace chart

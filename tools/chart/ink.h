#pragma once

#include "chart/chart.h"

#include <vector>

namespace chart {

// A rectangle centred on the chart's origin.
struct Rectangle {
    double dHalfX;
    double dHalfY;
};

// The dark shapes; the frame lies between its two rectangles.
struct Ink {
    Rectangle tFrameOuter;
    Rectangle tFrameInner;
    Rectangle tHorizontalBar;
    Rectangle tVerticalBar;
};

Ink InkOf(const Chart& tChart);

// A rectangle that is counted nWeight times.
struct InkPatch : Rectangle {
    int nWeight;
};

// Rectangles whose weighted sum is 1 on ink and 0 on paper, for any measures: frame and bars may overlap.
std::vector<InkPatch> InkPatches(const Ink& tInk);

} // namespace chart

#pragma once

#include "input.h"
#include "support/plane.h"

namespace fuzz {

using support::Plane;

// A chart in a small or large picture, seen from several sides; rendered once and kept.
struct View {
    int nColumns;
    int nRows;
    double dFrameHalfWidth;  // px from the picture's centre to the frame's sides
    double dFrameHalfHeight; // to its top and bottom
};

// The view's chart, or what the input makes of it: another pose, size and place in the picture, other grey
// levels, things in front of it, noise. Without bytes the upright chart.
Plane PaintChart(Input& tInput, const View& tView);

// Rectangles of one grey, of noise or turned into their negative.
void PaintPatches(Input& tInput, Plane& tPlane, int nMost);

// Dark and bright only.
Plane Binarised(const Plane& tGrey, unsigned char ubDarkest);

} // namespace fuzz

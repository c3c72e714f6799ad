#pragma once

#include "basics/geometry.h"

#include <optional>

namespace tools {

// Corners in picture pixels.
struct Rectangle {
    double dLeft, dTop, dRight, dBottom;

    std::array<Point, 4> Corners() const { // as kCorners
        return {{{dLeft, dTop}, {dRight, dTop}, {dLeft, dBottom}, {dRight, dBottom}}};
    }
};

// Where the library searches for the frame, px.
struct FrameSearch {
    int nMargin;            // taken to both sides of the edges that are met
    int nOffsetX, nOffsetY; // from the cross's centre to the search's start
};

// Where the library's stages looked in one camera's picture; nothing for a stage that was not reached.
struct StageView {
    std::optional<Rectangle> oFirstWindow;  // of the first pass over the cross
    std::optional<Rectangle> oSearchWindow; // of the last one, around what the first one took for the centre
    std::optional<double> oCrossThreshold;  // of the first pass: pixels up to it are taken as ink, grey level
    std::optional<Rectangle> oFrameStart;   // from its corners the frame is searched outward
    std::optional<Rectangle> oOuterFrame, oInnerFrame;
    std::optional<Rectangle> oFrameEdge; // where the search met the frame; a rolled frame's mean
};

} // namespace tools

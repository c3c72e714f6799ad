#pragma once

#include "measuring/measurement.h"

namespace tools {

// How far what the stages search for lies from where they would miss it, px; less than 0: it is beyond that.
// A cross that reaches beyond its window may still be measured, by what is left. Nothing where it was not
// seen.
struct Margins {
    std::optional<double> oFrameStart; // from where the frame's search starts outward to the frame's line
    std::optional<double> oWindow;     // from the cross's bars to the border of their first search window
    std::optional<double> oRoll;       // what the roll leaves of the margin around the frame's edges
};

Margins MarginsOf(const Picture& tPicture, const CameraResult& tResult);

// px by which the roll moves the ends of the frame's long sides from their middle.
double RollShift(const CameraReading& reading);

} // namespace tools

#ifndef ORVEX_TOOLS_STAGE_VIEWS_H
#define ORVEX_TOOLS_STAGE_VIEWS_H

#include "measurement.h"

namespace tools {

// Corners in picture pixels.
struct Rectangle {
    double dLeft, dTop, dRight, dBottom;
};

// Where the library's stages looked in one camera's picture; nothing for a stage that was not reached.
struct StageView {
    std::optional<Rectangle> oSearchWindow; // of the last pass over the cross
    std::optional<Rectangle> oOuterFrame, oInnerFrame;
};

// Calls the library's stages again, with the parameters of the latest measurement, which must be
// tMeasurement.
StageView ViewOf(const Picture& tPicture, Camera tCamera, const Measurement& tMeasurement);

} // namespace tools

#endif

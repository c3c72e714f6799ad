#pragma once

#include "measuring/measurement.h"
#include "reading/soundness.h"
#include "trust/cross_levels.h"
#include "trust/margins.h"
#include "trust/side_reading.h"

namespace tools {

// Beyond these a camera's numbers are warned of. Where rendered pairs are the source, they had noise of 0 to
// 8 grey levels, blur of 0 to 3 px and contrasts from 40 to 160 grey levels.

// px RMS from a side's fitted line. Rendered pairs that are measured rightly stay below 0.24; a side that
// bows by 1.3 px reaches it.
constexpr double kLargeResidual = 0.3;

// px from a measured corner to the fitted line of one of its sides. Corners of rendered pairs lie within 0.19
// of it (0.21 once, at a contrast where other seeds failed), or 5 and more beside it where noise of 8 grey
// levels misled their measurement, and the angles then are off by half a degree. A corner off by this limit
// turns a tilt by 0.04 degrees.
constexpr double kLargeCornerDistance = 0.3;

// Grey levels from dark to bright, as the cause of a failure: rendered pairs with a blur of 3 px and noise of
// 2 are measured at 72 grey levels and fail at 64. Of what is measured, nearly all is right down to 55, and
// the second reading tells the rest.
constexpr double kLowContrast = 70.0, kLowestContrast = 50.0;

// Grey levels. Of rendered pairs with a blur of 0.8 px and full contrast all are measured rightly with noise
// of 6, 37 of 40 with 8, half of them with 9.
constexpr double kLargeNoise = 8.0;

// From here on hardly a pair is measured, and the noise tells for all that is read of its sides.
constexpr double kSpoilingNoise = 10.0;

// px. The frame's levels are taken from 40 px around it; nearer than half of that to the border, most of the
// bright paper is missing there. Rendered pairs are measured alike down to 1 px, but the next module, which
// aims a little differently, may cut the frame off.
constexpr double kNearBorder = 20.0;

// Percent of the lines across a side that show the frame. One in ten missing is more than dust; a rendered
// frame that just touches the border keeps 91, with a right angle, and one that is cut by 4 px has 59, with a
// wrong one.
constexpr double kLeastRead = 90.0;

// px of the frame's margin that a roll may not take, where it moves the ends of the frame's long sides:
// rendered pairs up to 3072 px wide are measured up to 38 of 40, that is 3.7 degrees of roll in a picture of
// 1728 x 972 px. Of larger ones a few fail at a corner before.
constexpr double kMarginBesideRoll = 2;

// What something on the chart leaves in the second reading's numbers: of 501 clean rendered pairs none was
// beyond these limits (one had a corner off its line), of 27 that dirt had turned by more than 0.05 degrees
// these or others told of every one. Light that falls off by 60 % to the picture's corners leaves a step of 8
// %.
constexpr double kLeastUsed = 60, kLargeGap = 0.1, kWidthSpread = 2, kLightStep = 10;

// How far one camera's measurement can be trusted; nothing where there was nothing to read.
struct CameraTrust {
    bool bMeasured = false; // the pair was; else the limits are those of causes of a failure
    std::array<std::optional<SideReading>, 4> aoSides; // as kSides
    // From each side's fitted line to the farther of its two measured corners.
    struct CornerOff {
        double dDistance; // px
        std::size_t nCorner;
    };
    std::array<std::optional<CornerOff>, 4> aoCornersOff;
    std::optional<double> oBorderDistance; // smallest from the frame's outer edge, px
    std::optional<int> oCrossSpan;
    std::optional<double> oNoise; // grey levels
    std::optional<Soundness> oSoundness;
    struct Frame {
        double dWidth, dHeight, dRollShift; // px
    };
    std::optional<Frame> oFrame; // as the second reading sees it
    std::optional<CrossLevels> oCross;
    std::optional<double> oCrossThreshold; // the cross's search takes pixels up to it as ink
    Margins tMargins;
    FrameSearch tFrameSearch;                                // some limits follow from it
    std::map<std::string, double, std::less<>> tLimits = {}; // others may be a product's own
};

// From the picture's pixels. A side is read between its corners, where they were not measured beside the
// frame's edge that the stages met, and without that from where they began to search for it.
CameraTrust TrustOf(const Picture& tPicture, const CameraResult& tResult, const Limits& limits,
                    bool bMeasured);

} // namespace tools

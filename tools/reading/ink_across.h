#pragma once

#include "reading/axis_view.h"

#include <optional>

namespace tools {

// From dark to bright, grey levels: camera noise stays well below this step, print well above it.
constexpr double kLeastStep = 12.0;

// Ink between paper on one line across. Positions in samples, levels in grey levels.
struct InkAcross {
    int nLine;
    double dCentre, dWidth;
    double dCentreByLight, dWidthByLight; // noisier, but the same wherever the line lies between the pixels
    double dDark, dPaperBefore, dPaperAfter;
};

// The ink around the darkest place within so many samples of a place, to about half a sample.
std::optional<InkAcross> FindInk(const AxisView& tView, int nLine, double dMiddle, double dReach);

// The ink whose place and width are known to about a sample: both edges at the half level between the line's
// own ink and its own paper beside that edge. Nothing if the line does not show it.
std::optional<InkAcross> ReadInk(const AxisView& tView, int nLine, double dMiddle, double dWidth);

} // namespace tools

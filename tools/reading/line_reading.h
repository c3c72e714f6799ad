#pragma once

#include "basics/geometry.h"
#include "reading/ink_across.h"
#include "reading/robust_line.h"

#include <vector>

namespace tools {

// From and to, px along a line.
struct Stretch {
    double dFirst, dLast;
    bool Holds(double d) const { return d > dFirst && d < dLast; }
};

// A line as a few lines across it show it.
struct RoughLine {
    UncertainLine tLine; // without variances
    double dWidth;       // of the ink
};

// On so few lines across, within so many px of where the line is expected. Nothing if less than a third of
// them show ink.
std::optional<RoughLine> ReadRoughly(const AxisView& tView, Stretch tAlong, const UncertainLine& tExpected,
                                     double dReach);

// What a stretch of a line tells.
struct LineReading {
    UncertainLine tLine;
    Stretch tAlong = {};             // what was read
    double dScatter = 0;             // of the centres about the line, px
    int nLines = 0, nUsed = 0;       // across; of them those that count in the line
    double dWidth = 0;               // of the ink, px
    double dContrast = 0;            // from ink to paper, grey levels
    double dLightStep = 0;           // grey levels: the largest of the paper along the line or across it
    std::vector<LinePoint> aLeftOut; // centres that do not count
};

// A line's centres on all lines across a stretch of it.
struct LineCentres {
    LineReading tReading;            // without what tells of the line through them
    std::vector<LinePoint> aCentres; // of the lines across that show ink
    std::vector<double> adByLight;   // the same by light
    double dWidthByLight = 0;        // px
    RobustFit tFit;                  // of the centres
};

// Reads them around a line that is known to about a sample, on all lines across but those inside a gap.
// Nothing if too few of them show ink.
std::optional<LineCentres> ReadCentres(const AxisView& tView, Stretch tAlong, const RoughLine& tRough,
                                       Stretch tGap = {0, 0});

} // namespace tools

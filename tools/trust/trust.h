#ifndef ORVEX_TOOLS_TRUST_TRUST_H
#define ORVEX_TOOLS_TRUST_TRUST_H

#include "measuring/quantities.h"
#include "trust/cross_levels.h"
#include "trust/side_reading.h"

namespace tools {

// How far one camera's measurement can be trusted; nothing where there was nothing to read.
struct CameraTrust {
    std::array<std::optional<SideReading>, 4> aoSides; // left, top, right, bottom
    // From each side's fitted line to the farther of its two measured corners, px.
    std::array<std::optional<double>, 4> aoCornerDistances;
    std::optional<double> oBorderDistance; // smallest from the frame's outer edge, px
    std::optional<int> oCrossSpan;
    std::optional<CrossLevels> oCross;
    std::optional<double> oCrossThreshold; // the cross's search takes pixels up to it as ink
};

// From the picture's pixels. A side is read between its corners, where they were not measured beside the
// frame's edge that the stages met, and without that from where they began to search for it.
CameraTrust TrustOf(const Picture& tPicture, const CameraMeasurement& tMeasured, const StageView& tView);

// Percent of the lines across a side that show the frame; nothing if there is no line.
std::optional<double> ReadShareOf(const SideReading& t);

Quantities QuantitiesOf(const CameraTrust& t);

// Both ends of each side's fitted line, px. Apart from the others: people look at them in the report.
Quantities LinesOf(const CameraTrust& t);

// What speaks against a camera's numbers: value, limit and what to do.
std::vector<std::string> WarningsOf(Camera tCamera, const CameraTrust& t);

} // namespace tools

#endif

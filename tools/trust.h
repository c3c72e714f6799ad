#ifndef ORVEX_TOOLS_TRUST_H
#define ORVEX_TOOLS_TRUST_H

#include "quantities.h"
#include "side_reading.h"

namespace tools {

// How far one camera's measurement can be trusted; nothing where there was nothing to read.
struct CameraTrust {
    std::array<std::optional<SideReading>, 4> aoSides; // left, top, right, bottom
    // From each side's fitted line to the farther of its two measured corners, px.
    std::array<std::optional<double>, 4> aoCornerDistances;
    std::optional<double> oBorderDistance; // smallest from the frame's outer edge, px
    std::optional<int> oCrossSpan;
};

// From the picture's pixels and the measured corners.
CameraTrust TrustOf(const Picture& tPicture, const CameraMeasurement& tMeasured);

// Percent of the lines across a side that show the frame; nothing if there is no line.
std::optional<double> ReadShareOf(const SideReading& t);

Quantities QuantitiesOf(const CameraTrust& t);

// What speaks against a camera's numbers: value, limit and what to do.
std::vector<std::string> WarningsOf(Camera tCamera, const CameraTrust& t);

} // namespace tools

#endif

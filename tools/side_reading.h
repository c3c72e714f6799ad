#ifndef ORVEX_TOOLS_SIDE_READING_H
#define ORVEX_TOOLS_SIDE_READING_H

#include "measurement.h"

#include <span>

namespace tools {

// A dark stretch between bright ones. Positions in samples from the first, levels in grey levels.
struct DarkRun {
    double dCentre;
    double dWidth;
    double dDark;
    double dBright;
};

// The dark run around the darkest sample, with edges halfway between its level and the bright one. None if
// the step is too small to be ink on paper or if the run does not end on both sides.
std::optional<DarkRun> FindDarkRun(std::span<const double> adGrey);

// What the grey values along one side of the frame tell about the straight line between two corners. This is
// the tool's own reading: it looks along the whole side, the library only near the corners.
struct SideReading {
    int nLines = 0; // across the side, at regular steps
    int nRead = 0;  // of them with a dark run
    // Nothing if no line was read. Residual: RMS distance of the runs' centres from the straight line, px.
    std::optional<double> oResidual, oDark, oBright, oWidth;
};

// Reads the side between two measured corners.
SideReading ReadSide(const Picture& tPicture, Point tFrom, Point tTo);

} // namespace tools

#endif

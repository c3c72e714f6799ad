#pragma once

#include "basics/geometry.h"
#include "pictures/picture.h"

#include <span>

namespace tools {

double Distance(Point a, Point b);

// Lines across a side, one every so many px along it.
constexpr double kLineStep = 8.0;

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

// What the grey values along one side of the frame tell. This is the tool's own reading: it looks along the
// whole side, the library only near the corners.
struct SideReading {
    int nLines = 0; // across the side, at regular steps
    int nRead = 0;  // of them with a dark run
    // Of the straight line that is fitted to the runs' centres by least squares: their RMS distance from it
    // and its points beside the side's ends, in their order. Nothing if there are too few runs to leave a
    // residual.
    std::optional<double> oResidual;
    std::optional<std::array<Point, 2>> oEnds;
    std::optional<double> oDark, oBright, oWidth; // medians; nothing if no line was read
};

// Reads the side between two corners, measured ones or near them.
SideReading ReadSide(const Picture& tPicture, Point tFrom, Point tTo);

// Reads a side whose place is not known: on lines that begin on the way between two points and reach so far
// to its right, as one sees it going.
SideReading SearchSide(const Picture& tPicture, Point tFrom, Point tTo, double dReach);

} // namespace tools

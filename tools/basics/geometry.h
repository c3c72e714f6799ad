#pragma once

#include <array>
#include <cstddef>

namespace tools {

// A place in a picture, px: (0, 0) is the centre of the first pixel, x to the right, y down.
struct Point {
    double dX;
    double dY;
};

// Rotations about the three axes, degrees.
struct Angles {
    double dRx = 0;
    double dRy = 0;
    double dRz = 0;
};

// The three axes in their order everywhere.
struct AxisName {
    const char* szKey;
    const char* szLabel;
    double Angles::*pAngle;
};
constexpr std::array<AxisName, 3> kAxes = {
    {{"rx", "Rx", &Angles::dRx}, {"ry", "Ry", &Angles::dRy}, {"rz", "Rz", &Angles::dRz}}};

constexpr Angles operator+(const Angles& a, const Angles& b) {
    return {a.dRx + b.dRx, a.dRy + b.dRy, a.dRz + b.dRz};
}

// The frame's corners, in the order in which they are measured: wherever there are four of them.
struct CornerName {
    const char* szKey;
    const char* szLabel;
};
constexpr std::array<CornerName, 4> kCorners = {{{"left_top", "left top"},
                                                 {"right_top", "right top"},
                                                 {"left_down", "left down"},
                                                 {"right_down", "right down"}}};

// The frame's sides in their order everywhere, each between two corners.
struct SideName {
    const char* szKey;
    std::size_t nFrom, nTo; // places of its corners
    bool bAlongRows;
};
constexpr std::array<SideName, 4> kSides = {
    {{"left", 0, 2, false}, {"top", 0, 1, true}, {"right", 1, 3, false}, {"bottom", 2, 3, true}}};

// What a measurement of one picture should find.
struct CameraTruth {
    Point tCentre;                   // of the cross
    std::array<Point, 4> aCorners{}; // where the frame's centre lines meet, as kCorners
    Angles tPose;                    // of the camera against the chart
};

} // namespace tools

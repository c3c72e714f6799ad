#ifndef ORVEX_TOOLS_MEASURING_MEASUREMENT_H
#define ORVEX_TOOLS_MEASURING_MEASUREMENT_H

#include "measuring/status_words.h"
#include "pictures/picture.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tools {

struct Point {
    double dX;
    double dY;
};

// Rotations about the three axes, degrees.
struct Angles {
    double dRx;
    double dRy;
    double dRz;
};

// The frame's corners in the order in which they are measured.
struct CornerName {
    std::size_t nSlot; // in CameraMeasurement
    const char* szKey;
    const char* szLabel;
};
constexpr std::array<CornerName, 4> kCorners = {{{0, "left_top", "left top"},
                                                 {2, "right_top", "right top"},
                                                 {1, "left_down", "left down"},
                                                 {3, "right_down", "right down"}}};

// The frame's sides in the order of CameraMeasurement, each between two corners.
struct SideName {
    const char* szKey;
    std::size_t nFrom, nTo; // slots of its corners
};
constexpr std::array<SideName, 4> kSides = {
    {{"left", 0, 1}, {"top", 0, 2}, {"right", 2, 3}, {"bottom", 1, 3}}};

enum class Camera { kMaster, kSlave };

const char* NameOf(Camera tCamera);

// What is known of one camera; nothing where the measurement did not come so far. Pixels and degrees.
struct CameraMeasurement {
    std::optional<Point> oCentre;
    std::optional<double> oCrossAngle;
    std::optional<int> oBarSpan;
    std::array<std::optional<Point>, 4> aoCorners; // left-top, left-down, right-top, right-down
    std::optional<std::array<double, 4>> oSides;   // left, top, right, bottom
    std::optional<double> oTiltX, oTiltY;
};

// The first corner without a position; none if all have one.
const CornerName* MissingCorner(const CameraMeasurement& t);

// One call of the library: a copy of all that it tells, so that it outlasts the next call.
struct Measurement {
    unsigned int nStatus;
    std::optional<Camera> oFailedCamera;
    std::optional<Angles> oRaw;
    std::optional<Angles> oRescaled;
    CameraMeasurement tMaster, tSlave;
    std::string strRecord;                 // the record file's bytes; empty if it could not be encrypted
    std::vector<std::string> aDiagnostics; // lines on standard output
    std::vector<std::string> aLog;         // lines of the log
    std::vector<std::string> aNotes;       // worth knowing, but no failure
};

// Whether the library came to this camera's picture.
bool WasBegun(Camera tCamera, const Measurement& t);

// Measures a pair. strCalibration holds at least ORVEX_CALIBRATION_SIZE bytes.
Measurement Measure(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration);

} // namespace tools

#endif

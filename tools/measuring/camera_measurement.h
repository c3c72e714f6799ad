#pragma once

#include "basics/geometry.h"
#include "measuring/status_words.h"

#include <optional>

namespace tools {

enum class Camera { kMaster, kSlave };

constexpr const char* NameOf(Camera tCamera) {
    return tCamera == Camera::kMaster ? "master" : "slave";
}

// What is known of one camera; nothing where the measurement did not come so far. Pixels and degrees.
struct CameraMeasurement {
    Stage tReached = Stage::kEntry; // it failed or was not begun there; all before it were passed
    std::optional<Point> oCentre;
    std::optional<double> oCrossAngle;
    std::optional<int> oBarSpan;
    std::array<std::optional<Point>, 4> aoCorners; // as kCorners
    std::optional<std::array<double, 4>> oSides;   // as kSides
    std::optional<double> oTiltX, oTiltY;

    // Whether the library came to this camera's picture.
    bool WasBegun() const { return tReached > Stage::kEntry; }
};

} // namespace tools

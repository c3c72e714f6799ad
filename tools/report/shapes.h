#pragma once

#include "report/report.h"

namespace tools {

// One kind of shape, which the page can show or hide. Its key is its class.
struct ShapeKind {
    const char* szKey;
    const char* szWords;
};
constexpr std::array<ShapeKind, 6> kShapeKinds = {{{"window", "search window of the cross"},
                                                   {"frame", "outer and inner frame rectangle"},
                                                   {"cross", "centre and bars' directions"},
                                                   {"side", "corners and lines between them"},
                                                   {"fitted", "lines fitted along the sides"},
                                                   {"second", "second reading, centres left out"}}};

// A place worth a close look.
struct Mark {
    std::string strKey;
    std::string strLabel;
    Point tPoint;
};

// The measured ones: cross centre and corners.
std::vector<Mark> MarksOf(const CameraMeasurement& measured);

// The picture and all that was found in it, in picture pixels: (0, 0) is the centre of the first one, so the
// picture begins half a pixel before. Ids begin with the camera's name.
// oFailure: where the measurement failed in it.
std::string SvgOf(const CameraReport& tCamera, std::optional<Point> oFailure);

} // namespace tools

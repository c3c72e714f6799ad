#pragma once

#include "reading/camera_reading.h"

#include <variant>

namespace tools {

// The frame's corners to a few px, as kCorners, or why they are not there. Looks all over the picture for two
// pairs of straight lines that cross in a rectangle of the chart's shape, rolled by up to thirty degrees.
std::variant<NoReading, std::array<Point, 4>> FindFrame(const Picture& tPicture,
                                                        const ChartMeasures& tMeasures);

// Whether corners stand as those of a frame may: their sides' lengths are near the chart's shape.
bool AreLikeAFrame(const std::array<Point, 4>& aCorners, const ChartMeasures& tMeasures);

} // namespace tools

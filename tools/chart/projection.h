#pragma once

#include "chart/camera.h"
#include "chart/chart.h"

#include <array>

namespace chart {

using tools::Point;

using Truth = tools::CameraTruth;

// Where the camera sees a point of the chart plane given in chart units. The point must lie in front of the
// camera; the picture's border is no limit.
Point ProjectPoint(const Chart& tChart, const Camera& tCamera, const Pose& tPose, const Point& tOnChart);

Truth Project(const Chart& tChart, const Camera& tCamera, const Pose& tPose);

} // namespace chart

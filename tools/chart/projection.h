#ifndef ORVEX_CHART_PROJECTION_H
#define ORVEX_CHART_PROJECTION_H

#include "chart/camera.h"
#include "chart/chart.h"

#include <array>

namespace chart {

struct Point {
    double dX;
    double dY;
};

enum Corner { kLeftTop, kLeftDown, kRightTop, kRightDown };

// What a measurement of the picture should find, in pixels and degrees.
struct Truth {
    Point tCentre;                   // of the cross
    std::array<Point, 4> aCorners{}; // where the frame's centre lines meet, indexed by Corner
    Pose tPose;
};

// Where the camera sees a point of the chart plane given in chart units. The point must lie in front of the
// camera; the picture's border is no limit.
Point ProjectPoint(const Chart& tChart, const Camera& tCamera, const Pose& tPose, const Point& tOnChart);

Truth Project(const Chart& tChart, const Camera& tCamera, const Pose& tPose);

} // namespace chart

#endif

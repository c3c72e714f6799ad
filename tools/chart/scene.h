#pragma once

#include "chart/camera.h"
#include "chart/chart.h"

#include <vector>

namespace chart {

// Light before the sensor: grey levels, neither rounded nor clamped, row by row.
struct Plane {
    int nWidth = 0;
    int nHeight = 0;
    std::vector<float> aGrey;
};

// The chart as an ideal camera collects it: every pixel holds the mean grey level over its square. Nothing
// but paper outside the frame. Empty for a camera without pixels.
Plane RenderScene(const Chart& tChart, const Camera& tCamera, const Pose& tPose);

} // namespace chart

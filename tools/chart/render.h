#pragma once

#include "chart/camera.h"
#include "chart/chart.h"

#include <cstdint>
#include <vector>

namespace chart {

// An evenly grey, axis-aligned thing in front of the chart, in whole picture pixels from (nLeft, nTop). What
// reaches over the picture's border is cut off.
struct Occlusion {
    int nLeft = 0;
    int nTop = 0;
    int nWidth = 0;
    int nHeight = 0;
    double dGrey = 0.0;
};

// What optics and sensor do to the light, in the order of the members.
struct Capture {
    std::vector<Occlusion> aOcclusions; // painted one after the other
    double dVignetting = 0.0;           // relative loss at the picture's corners, growing with r^2; 0 to 1
    double dBlurSigma = 0.0;            // px, at most kMaxBlurSigma
    double dGain = 1.0;                 // factor on the grey levels
    double dNoiseSigma = 0.0;           // grey levels, after the gain
    std::uint64_t nSeed = 1;            // of the noise
};

// Renders the picture: nWidth * nHeight grey levels row by row, 0 (black) to 255. The same arguments give
// the same bytes on every processor and compiler. Empty for a camera without pixels.
std::vector<std::uint8_t> Render(const Chart& tChart, const Camera& tCamera, const Pose& tPose,
                                 const Capture& tCapture = {});

} // namespace chart

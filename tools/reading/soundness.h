#pragma once

#include "reading/camera_reading.h"

namespace tools {

// Numbers that tell whether something lies on a camera's chart.
struct Soundness {
    std::size_t nCovered, nBroken,
        nLit;            // the line that is used least, the side with the gap, the line with the step
    double dLeastUsed;   // percent of the lines across that show the worst half side or bar straight
    double dLargestGap;  // px, between the halves of a side
    double dWidthSpread; // percent, of the frame line's width
    double dLightStep;   // percent of the contrast, the paper's largest
};

Soundness SoundnessOf(const CameraReading& reading);

} // namespace tools

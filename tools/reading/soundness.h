#pragma once

#include "reading/camera_reading.h"

namespace tools {

// degrees. The second reading of an angle with a larger standard uncertainty cannot vouch for the first one:
// rendered pairs stay below it up to noise of 6 grey levels with blur of 2 px at a contrast of 60.
constexpr double kLargeUncertainty = 0.015;

// A number that tells whether something lies on a camera's chart, and from where on it does.
struct SoundnessNumber {
    const char* szKey;   // ends in the unit
    const char* szWords; // for people
    const char* szUnit;
    double dValue;
    double dLimit;
    bool bLeast; // the limit is the least that is sound, else the most

    bool IsSound() const { return bLeast ? dValue >= dLimit : dValue <= dLimit; }
};

std::array<SoundnessNumber, 4> SoundnessOf(const CameraReading& reading);

} // namespace tools

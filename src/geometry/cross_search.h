#pragma once

#include "geometry/cross_measurement.h"

namespace orvex {

// Where the refining pass leaves what it finds.
struct CrossOutputs {
    double* pAngle;
    float* pCenter; // x, y
    int* pSpan;
};

// One pass of the cross search over one camera's window, whose dark pixels are given: without outputs the
// coarse one, which leaves the coarse centre in pCenter, else the refining one, which reads it. Returns 0 or
// the status of what is not found.
unsigned int SearchCross(const DarkBits& tDark, PlaneView tGrey, CentreWindow tWindow, bool bMaster,
                         unsigned short* pCenter, const CrossOutputs* pOutputs);

} // namespace orvex

#pragma once

#include "geometry/dark_histograms.h"
#include "image/centre_window.h"

namespace orvex {

// What the second pass over a picture finds.
struct CrossMeasurement {
    float afCentre[2]; // x, y
    float fAngle;      // degrees, positive if the horizontal bar's right end lies lower
    int nSpanX;        // columns of the horizontal bar; 0 until they are found
};

// Refines the coarse centre and measures both bars in the grey plane. tHistograms: of tWindow in the binary
// plane. dThreshold: grey threshold of the bars' edges. Returns 0 or the status of the first step that fails.
unsigned int MeasureCross(PlaneView tGrey, const DarkHistograms& tHistograms, CentreWindow tWindow,
                          const unsigned short* pCoarseCentre, double dThreshold, CrossMeasurement* pCross);

} // namespace orvex

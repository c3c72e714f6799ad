#pragma once

#include "Orvex_Alignment_Stages.h"
#include "measuring/camera_measurement.h"
#include "reading/camera_reading.h"

namespace tools {

// What every measurement of the library works with. Leaves the library's own block as it is.
DualCamAlignParam DefaultParameters();

// Where the library searches for the frame, px.
struct FrameSearch {
    int nMargin;            // taken to both sides of the edges that are met
    int nOffsetX, nOffsetY; // from the cross's centre to the search's start
};

// The chart and its distance, for a second reading by the library's own formulas.
ChartMeasures ChartMeasuresOf(const DualCamAlignParam& tParameters);

FrameSearch FrameSearchOf(Camera tCamera, const DualCamAlignParam& tParameters);

} // namespace tools

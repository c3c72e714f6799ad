#pragma once

#include "Orvex_Alignment_Stages.h"
#include "measuring/camera_measurement.h"
#include "measuring/limits.h"
#include "measuring/stage_view.h"
#include "pictures/picture_size.h"
#include "reading/camera_reading.h"

#include <span>

namespace tools {

// What the stages work with.
struct Parameters {
    DualCamAlignParam tBlock;
    PictureSize tMaster = {1728, 972}, tSlave = {1728, 972};
    bool bSizesHold = false; // they were set: pictures of another size are not the product's
};

// What every measurement of the library works with, and the sizes that it takes where the host sets none.
// Leaves the library's own block as it is.
Parameters DefaultParameters();

// By what a pair is measured and judged.
struct MeasuringSetup {
    Parameters tParameters = DefaultParameters();
    Limits tLimits = {};
    std::string strProduct = {};                 // the file that it comes from; empty for the library's own
    double dHorizontalBar = 1, dVerticalBar = 1; // widths of the cross's bars, in those of the frame's line
};

enum class ParameterKind { kNumber, kWhole, kFlag };

// One of them: all that is told of it, and what it may be. Each value is exact in a double.
struct Parameter {
    const char* szName; // as in the library's headers
    const char *szUnit, *szMeaning;
    Stage tStage; // that reads it first; kComplete: none
    Stage tLast;  // and that reads it last
    ParameterKind tKind;
    double dLowest, dHighest;
    double (*Get)(const Parameters& parameters);
    void (*Set)(Parameters& parameters, double d);
};
std::span<const Parameter> ParameterTable();

// Names of those of the library's block that differ from the defaults.
std::vector<std::string> ChangedParameters(const Parameters& parameters);

// The chart and its distance, for a second reading by the library's own formulas.
ChartMeasures ChartMeasuresOf(const MeasuringSetup& setup);

FrameSearch FrameSearchOf(Camera tCamera, const DualCamAlignParam& tParameters);

} // namespace tools

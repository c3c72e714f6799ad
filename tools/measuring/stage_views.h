#pragma once

#include "Orvex_Alignment_Stages.h"
#include "measuring/camera_measurement.h"
#include "measuring/stage_view.h"
#include "pictures/picture.h"

namespace tools {

struct StageViews {
    StageView tMaster, tSlave;
};

struct MeasuredPicture {
    const Picture& tPicture;
    const CameraMeasurement& tMeasured;
};

// The picture's pixels as the library takes them: to be written to, but it leaves them as they are.
unsigned char* LentToStages(const Picture& t);

// Calls the library's stages again with the parameters of that measurement. Writes to the library's parameter
// and working block.
StageViews ViewsOf(const MeasuredPicture& tMaster, const MeasuredPicture& tSlave,
                   const DualCamAlignParam& tParameters);

} // namespace tools

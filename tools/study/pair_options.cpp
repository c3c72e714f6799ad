#include "study/pair_options.h"

namespace tools {

void ScaleTo(PictureSize size, PairOptions& options) {
    for (chart::Camera* const p : {&options.tMasterCamera, &options.tSlaveCamera})
        *p = chart::ScaledTo(*p, size.nColumns, size.nRows);
}

chart::PairSetup SetupOf(const PairOptions& tOptions) {
    chart::PairSetup tSetup;
    tSetup.tChart = tOptions.tChart;
    tSetup.tMaster = tOptions.tMasterCamera;
    tSetup.tSlave = tOptions.tSlaveCamera;
    tSetup.tMasterPose = tOptions.tMaster;
    tSetup.tRelativePose = tOptions.tRelative;
    tSetup.tMasterCapture = {.aOcclusions = {},
                             .dVignetting = tOptions.dVignetting,
                             .dBlurSigma = tOptions.dBlur,
                             .dGain = tOptions.dGain,
                             .dNoiseSigma = tOptions.dNoise,
                             .nSeed = tOptions.nSeed};
    tSetup.tSlaveCapture = tSetup.tMasterCapture;
    return tSetup;
}

} // namespace tools

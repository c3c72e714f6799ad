#include "study/pair_options.h"

namespace tools {

chart::PairSetup SetupOf(const PairOptions& tOptions) {
    const auto [nColumns, nRows] = tOptions.tSize;
    chart::PairSetup tSetup;
    tSetup.tMaster = chart::ScaledTo(chart::DefaultMaster(), nColumns, nRows);
    tSetup.tSlave = chart::ScaledTo(chart::DefaultSlave(), nColumns, nRows);
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

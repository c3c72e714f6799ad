#include "core/camera.h"

namespace orvex {

// The records hold the two cameras side by side under two suffixes.
#define PARAMETERS_OF(Camera)                                                                                \
    CameraParameters {                                                                                       \
        m_pCMainView.nWidth_##Camera, m_pCMainView.nHeight_##Camera, t.dBinaryRatio_##Camera,                \
            t.dSearchWidthRatio_##Camera, t.dSearchHeightRatio_##Camera, t.nFrameMargin_##Camera,            \
            t.nFrameOffsetX_##Camera, t.nFrameOffsetY_##Camera,                                              \
            {t.dFrameParam0_##Camera, t.dFrameParam1_##Camera, t.dFrameParam4_##Camera},                     \
            {t.dFrameParam2_##Camera, t.dFrameParam3_##Camera, t.dFrameParam4_##Camera},                     \
            t.dPixelScaleX_##Camera, t.dPixelScaleY_##Camera, static_cast<double>(t.nSensorWidth_##Camera),  \
            static_cast<double>(t.nSensorHeight_##Camera)                                                    \
    }

#define RESULTS_OF(Camera)                                                                                   \
    CameraResults {                                                                                          \
        t.dBinaryThreshold_##Camera, t.dCrossAngle_##Camera, t.afCrossCenter_##Camera,                       \
            t.afCrossCenterCopy_##Camera, t.nCrossSpanX_##Camera, t.dCrossAux0_##Camera,                     \
            t.dCrossAux1_##Camera, t.dCrossAux2_##Camera, t.adFrameThreshold_##Camera,                       \
            t.afCornerPoint_##Camera, t.afFrameExtent_##Camera, t.afFrameDiagonal_##Camera,                  \
            t.fDiagonalRatio_##Camera, t.adSideLength_##Camera, t.dTiltX_##Camera, t.dTiltY_##Camera         \
    }

CameraParameters ParametersOf(bool bMaster) {
    const DualCamAlignParam& t = m_tDualCamAlignParam;
    return bMaster ? PARAMETERS_OF(Master) : PARAMETERS_OF(Slave);
}

CameraResults ResultsOf(bool bMaster) {
    DualCamAlignData& t = m_tDualCamAlignData;
    return bMaster ? RESULTS_OF(Master) : RESULTS_OF(Slave);
}

} // namespace orvex

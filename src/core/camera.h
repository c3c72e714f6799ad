#pragma once

#include "Orvex_Alignment_Stages.h"

namespace orvex {

// Shares of a piece's pixels that fix its dark and bright level, and the threshold's place between them.
struct FrameFractions {
    double dDark;
    double dBright;
    double dBlend;
};

// One camera's parameters, as they stand at the moment.
struct CameraParameters {
    int nWidth;
    int nHeight;
    double dBinaryRatio;
    double dSearchWidthRatio;
    double dSearchHeightRatio;
    int nFrameMargin;
    int nFrameOffsetX;
    int nFrameOffsetY;
    FrameFractions tTopBottom;
    FrameFractions tLeftRight;
    double dPixelScaleX;
    double dPixelScaleY;
    double dSensorWidth;
    double dSensorHeight;
};

// One camera's measurements in m_tDualCamAlignData.
struct CameraResults {
    double& dBinaryThreshold;
    double& dCrossAngle;
    float (&afCrossCenter)[2];
    float (&afCrossCenterCopy)[2];
    int& nCrossSpanX;
    double& dCrossAux0;
    double& dCrossAux1;
    double& dCrossAux2;
    double (&adFrameThreshold)[ORVEX_CORNERS][2];
    float (&afCornerPoint)[ORVEX_CORNERS][2];
    float (&afFrameExtent)[2];
    float (&afFrameDiagonal)[2];
    float& fDiagonalRatio;
    double (&adSideLength)[ORVEX_SIDES];
    double& dTiltX;
    double& dTiltY;
};

// The one place that tells the cameras' fields apart.
CameraParameters ParametersOf(bool bMaster);
CameraResults ResultsOf(bool bMaster);

} // namespace orvex

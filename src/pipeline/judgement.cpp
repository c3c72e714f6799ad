#include "core/camera.h"

#include <cmath>

namespace orvex {
namespace {

constexpr double dDegreesPerRadian = 57.29577951307855;

// Tilt, in degrees, that makes one of two opposite sides look longer than the other. The scale cancels out of
// the ratio; it is applied all the same, because its rounding belongs to the result.
double TiltOfSides(double dFirst, double dSecond, double dScale, double dSensor, double dHalfSpan) {
    const double dDistance = m_tDualCamAlignParam.nChartDistance;
    const double a = dScale * dFirst / dSensor;
    const double b = dScale * dSecond / dSensor;
    return std::atan(dDistance * (a - b) / (a + b) / dHalfSpan) * dDegreesPerRadian;
}

// The sign convention of the results asks for a negated x tilt and a plain y tilt.
void JudgeTilts(bool bMaster) {
    const DualCamAlignParam& tParam = m_tDualCamAlignParam;
    const CameraParameters tCamera = ParametersOf(bMaster);
    const CameraResults tResults = ResultsOf(bMaster);
    const double* adSide = tResults.adSideLength;
    tResults.dTiltX = -TiltOfSides(adSide[ORVEX_TOP], adSide[ORVEX_BOTTOM], tCamera.dPixelScaleX,
                                   tCamera.dSensorWidth, tParam.dChartHalfSpanY);
    tResults.dTiltY = TiltOfSides(adSide[ORVEX_LEFT], adSide[ORVEX_RIGHT], tCamera.dPixelScaleY,
                                  tCamera.dSensorHeight, tParam.dChartHalfSpanX);
}

} // namespace
} // namespace orvex

unsigned int DualCamAlign_FirstResultJudgement() {
    DualCamAlignData& t = m_tDualCamAlignData;
    orvex::JudgeTilts(true);
    orvex::JudgeTilts(false);
    // Written as a negated difference: equal angles then give -0.0, which belongs to the result.
    t.dRz = -(t.dCrossAngle_Master - t.dCrossAngle_Slave);
    t.dRx = -(t.dTiltX_Master - t.dTiltX_Slave);
    t.dRy = -(t.dTiltY_Master - t.dTiltY_Slave);
    return ORVEX_OK;
}

#include "measuring/working_record.h"

#include "Orvex_Alignment_Stages.h"

#include <algorithm>

namespace tools {
namespace {

// Where the record keeps one camera's values.
struct CameraFields {
    float (DualCamAlignData::*pCentre)[2];
    double DualCamAlignData::*pCrossAngle;
    std::int32_t DualCamAlignData::*pBarSpan;
    float (DualCamAlignData::*pCorners)[ORVEX_CORNERS][2];
    double (DualCamAlignData::*pSides)[ORVEX_SIDES];
    double DualCamAlignData::*pTiltX;
    double DualCamAlignData::*pTiltY;
};

constexpr CameraFields kMasterFields = {
    &DualCamAlignData::afCrossCenter_Master, &DualCamAlignData::dCrossAngle_Master,
    &DualCamAlignData::nCrossSpanX_Master,   &DualCamAlignData::afCornerPoint_Master,
    &DualCamAlignData::adSideLength_Master,  &DualCamAlignData::dTiltX_Master,
    &DualCamAlignData::dTiltY_Master};

constexpr CameraFields kSlaveFields = {
    &DualCamAlignData::afCrossCenter_Slave, &DualCamAlignData::dCrossAngle_Slave,
    &DualCamAlignData::nCrossSpanX_Slave,   &DualCamAlignData::afCornerPoint_Slave,
    &DualCamAlignData::adSideLength_Slave,  &DualCamAlignData::dTiltX_Slave,
    &DualCamAlignData::dTiltY_Slave};

Point PointOf(const float (&afPoint)[2]) {
    return {afPoint[0], afPoint[1]};
}

void CopyCross(const CameraFields& tFields, CameraMeasurement& t) {
    t.oCentre = PointOf(m_tDualCamAlignData.*tFields.pCentre);
    t.oCrossAngle = m_tDualCamAlignData.*tFields.pCrossAngle;
}

// The span is known before the rest of the cross, and one corner before the next: while their stage runs, a
// value that is not zero has been measured.
void CopyBarSpan(const CameraFields& tFields, CameraMeasurement& t) {
    if (const int nSpan = m_tDualCamAlignData.*tFields.pBarSpan)
        t.oBarSpan = nSpan;
}

void CopyCorners(const CameraFields& tFields, CameraMeasurement& measured) {
    constexpr std::array<OrvexCorner, 4> kSlots = {ORVEX_LT, ORVEX_RT, ORVEX_LD, ORVEX_RD}; // as kCorners
    for (std::size_t i = 0; i < kSlots.size(); ++i) {
        const Point tCorner = PointOf((m_tDualCamAlignData.*tFields.pCorners)[kSlots[i]]);
        if (tCorner.dX != 0 || tCorner.dY != 0)
            measured.aoCorners[i] = tCorner;
    }
}

void CopySides(const CameraFields& tFields, CameraMeasurement& t) {
    std::ranges::copy(m_tDualCamAlignData.*tFields.pSides, t.oSides.emplace().begin());
}

void CopyTilts(const CameraFields& tFields, CameraMeasurement& t) {
    t.oTiltX = m_tDualCamAlignData.*tFields.pTiltX;
    t.oTiltY = m_tDualCamAlignData.*tFields.pTiltY;
}

} // namespace

CameraMeasurement RecordedCamera(Camera tCamera, Stage tReached) {
    const CameraFields& tFields = tCamera == Camera::kMaster ? kMasterFields : kSlaveFields;
    CameraMeasurement t;
    t.tReached = tReached;
    if (tReached >= Stage::kCross)
        CopyBarSpan(tFields, t);
    if (tReached > Stage::kCross)
        CopyCross(tFields, t);
    if (tReached >= Stage::kCornerPoints)
        CopyCorners(tFields, t);
    if (tReached > Stage::kCornerPoints)
        CopySides(tFields, t);
    if (tReached > Stage::kAngles)
        CopyTilts(tFields, t);
    return t;
}

Angles RecordedAngles() {
    return {m_tDualCamAlignData.dRx, m_tDualCamAlignData.dRy, m_tDualCamAlignData.dRz};
}

} // namespace tools

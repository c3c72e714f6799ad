#include "measuring/working_record.h"

#include "Orvex_Alignment_Stages.h"

#include <algorithm>

namespace tools {
namespace {

Point PointOf(const float (&afPoint)[2]) {
    return {afPoint[0], afPoint[1]};
}

// One corner is known before the next: while their stage runs, a value that is not zero has been measured.
void CopyCorners(const float (&aafCorners)[ORVEX_CORNERS][2], CameraMeasurement& measured) {
    constexpr std::array<OrvexCorner, 4> kSlots = {ORVEX_LT, ORVEX_RT, ORVEX_LD, ORVEX_RD}; // as kCorners
    for (std::size_t i = 0; i < kSlots.size(); ++i) {
        const Point tCorner = PointOf(aafCorners[kSlots[i]]);
        if (tCorner.dX != 0 || tCorner.dY != 0)
            measured.aoCorners[i] = tCorner;
    }
}

} // namespace

CameraMeasurement RecordedCamera(Camera tCamera, Stage tReached) {
    const DualCamAlignData& tData = m_tDualCamAlignData;
    const bool bMaster = tCamera == Camera::kMaster;
    CameraMeasurement measured;
    measured.tReached = tReached;
    // The span is known before the rest of the cross, and not zero then.
    if (const int nSpan = bMaster ? tData.nCrossSpanX_Master : tData.nCrossSpanX_Slave;
        tReached >= Stage::kCross && nSpan != 0)
        measured.oBarSpan = nSpan;
    if (tReached > Stage::kCross) {
        measured.oCentre = PointOf(bMaster ? tData.afCrossCenter_Master : tData.afCrossCenter_Slave);
        measured.oCrossAngle = bMaster ? tData.dCrossAngle_Master : tData.dCrossAngle_Slave;
    }
    if (tReached >= Stage::kCornerPoints)
        CopyCorners(bMaster ? tData.afCornerPoint_Master : tData.afCornerPoint_Slave, measured);
    if (tReached > Stage::kCornerPoints)
        std::ranges::copy(bMaster ? tData.adSideLength_Master : tData.adSideLength_Slave,
                          measured.oSides.emplace().begin());
    if (tReached > Stage::kAngles) {
        measured.oTiltX = bMaster ? tData.dTiltX_Master : tData.dTiltX_Slave;
        measured.oTiltY = bMaster ? tData.dTiltY_Master : tData.dTiltY_Slave;
    }
    return measured;
}

} // namespace tools

// All stages behind one another on small pictures, with parameters that no host sets.

#include "measuring.h"
#include "painting.h"

#include <algorithm>

using namespace fuzz;

namespace {

constexpr View tView = {320, 240, 140, 100};

// Made for the view's chart; the input changes some.
void SetParameters(Input& t) {
    DualCamAlignParam& tParam = *DualCamAlign_LoadParameters_ForAndroid();
    for (std::int32_t* const pMargin : {&tParam.nFrameMargin_Master, &tParam.nFrameMargin_Slave})
        *pMargin = 18;
    for (std::int32_t* const pOffset : {&tParam.nFrameOffsetX_Master, &tParam.nFrameOffsetX_Slave})
        *pOffset = 110;
    for (std::int32_t* const pOffset : {&tParam.nFrameOffsetY_Master, &tParam.nFrameOffsetY_Slave})
        *pOffset = 70;
    for (double* const pRatio : {&tParam.dSearchWidthRatio_Master, &tParam.dSearchWidthRatio_Slave,
                                 &tParam.dSearchHeightRatio_Master, &tParam.dSearchHeightRatio_Slave})
        *pRatio = 0.55;
    tParam.fSlaveShift = 0.0f;
    if (!t.OneIn(2))
        return;
    for (double* const p : {&tParam.dBinaryRatio_Master,       &tParam.dBinaryRatio_Slave,
                            &tParam.dFrameParam0_Master,       &tParam.dFrameParam1_Master,
                            &tParam.dFrameParam2_Master,       &tParam.dFrameParam3_Master,
                            &tParam.dFrameParam4_Master,       &tParam.dFrameParam0_Slave,
                            &tParam.dFrameParam1_Slave,        &tParam.dFrameParam2_Slave,
                            &tParam.dFrameParam3_Slave,        &tParam.dFrameParam4_Slave,
                            &tParam.dSearchWidthRatio_Master,  &tParam.dSearchWidthRatio_Slave,
                            &tParam.dSearchHeightRatio_Master, &tParam.dSearchHeightRatio_Slave,
                            &tParam.dPixelScaleX_Master,       &tParam.dPixelScaleY_Slave,
                            &tParam.dChartHalfSpanX,           &tParam.dChartHalfSpanY})
        *p = t.Real(*p);
    for (std::int32_t* const p :
         {&tParam.nFrameMargin_Master, &tParam.nFrameMargin_Slave, &tParam.nFrameOffsetX_Master,
          &tParam.nFrameOffsetX_Slave, &tParam.nFrameOffsetY_Master, &tParam.nFrameOffsetY_Slave})
        *p = t.Coordinate(*p, 320);
    tParam.fSlaveShift = t.OneIn(4) ? t.Float(1.0f) : static_cast<float>(t.Around0(200)) / 4.0f;
    tParam.bShiftAlongY = t.Byte(1);
    tParam.bUseSlaveShift = t.Byte(1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    SetParameters(t);
    Plane tMaster = PaintChart(t, tView), tSlave = PaintChart(t, tView);
    m_pCMainView.nWidth_Master = tMaster.nColumns;
    m_pCMainView.nHeight_Master = tMaster.nRows;
    m_pCMainView.nWidth_Slave = tSlave.nColumns;
    m_pCMainView.nHeight_Slave = tSlave.nRows;
    RequireSameTwice([&] {
        DualCamAlign_Initial();
        const unsigned int nStatus = DualCamAlign_Calculation(tMaster.Data(), tSlave.Data());
        return nStatus != ORVEX_OK ? nStatus : DualCamAlign_FirstResultJudgement();
    });
    return 0;
}

#include "Orvex_Alignment_Stages.h"

#include <bit>

DualCamAlignParam m_tDualCamAlignParam;

DualCamAlignParam* DualCamAlign_LoadParameters_ForAndroid() {
    DualCamAlignParam& t = m_tDualCamAlignParam;
    t.dBinaryRatio_Master = t.dBinaryRatio_Slave = 0.6;
    t.nFrameMargin_Master = t.nFrameMargin_Slave = 40;
    t.dFrameParam0_Master = t.dFrameParam0_Slave = 0.025;
    t.dFrameParam1_Master = t.dFrameParam1_Slave = 0.5;
    t.dFrameParam2_Master = t.dFrameParam2_Slave = 0.01;
    t.dFrameParam3_Master = t.dFrameParam3_Slave = 0.5;
    t.dFrameParam4_Master = t.dFrameParam4_Slave = 0.15;
    t.fSlaveShift = std::bit_cast<float>(0xC1C1BC7Au); // -24.21703 px
    t.bShiftAlongY = 1;
    t.bUseSlaveShift = 1;
    // The calibrated scales are fixed by their bits; the decimals are for the reader.
    t.dPixelScaleX_Slave = t.dPixelScaleX_Master = std::bit_cast<double>(0x40886F6ECBFB15B5ull); // 781.9291
    t.dPixelScaleY_Slave = t.dPixelScaleY_Master = std::bit_cast<double>(0x40821E0EF34D6A16ull); // 579.7573
    t.nChartDistance = 600;
    t.dSearchWidthRatio_Slave = t.dSearchWidthRatio_Master = 0.45;
    t.dSearchHeightRatio_Slave = t.dSearchHeightRatio_Master = 0.45;
    t.anReservedParam[0] = t.anReservedParam[1] = 160;
    t.anReservedParam[2] = t.anReservedParam[3] = 130;
    t.nFrameOffsetX_Slave = t.nFrameOffsetX_Master = 450;
    t.nFrameOffsetY_Slave = t.nFrameOffsetY_Master = 200;
    t.dChartHalfSpanX = 186.75;
    t.dChartHalfSpanY = 102.75;
    t.nSensorWidth_Master = t.nSensorWidth_Slave = 2104;
    t.nSensorHeight_Master = t.nSensorHeight_Slave = 1560;
    return &t;
}

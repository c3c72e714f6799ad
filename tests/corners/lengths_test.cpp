#include "Orvex_Alignment_Stages.h"

#include <gtest/gtest.h>

namespace {

class Lengths : public testing::Test {
protected:
    void SetUp() override {
        DualCamAlign_LoadParameters_ForAndroid();
        DualCamAlign_Initial();
        m_pCMainView.nWidth_Master = 1728;
        m_pCMainView.nHeight_Master = 972;
        m_pCMainView.nWidth_Slave = 1000;
        m_pCMainView.nHeight_Slave = 600;
    }
    static void SetCorners(float (&af)[ORVEX_CORNERS][2], float w, float h) {
        const float afCorner[ORVEX_CORNERS][2] = {{0, 0}, {0, h}, {w, 0}, {w, h}};
        std::copy_n(&afCorner[0][0], 8, &af[0][0]);
    }
    DualCamAlignData& t = m_tDualCamAlignData;
};

} // namespace

TEST_F(Lengths, RectangleGivesItsSidesAndOneCameraOnly) {
    SetCorners(t.afCornerPoint_Slave, 400, 300);
    ASSERT_EQ(DualCamAlign_NewMeasureSquareLength(t.afFrameExtent_Slave, false), 0u);
    const double adExpected[] = {300, 400, 300, 400};
    EXPECT_TRUE(std::equal(std::begin(adExpected), std::end(adExpected), t.adSideLength_Slave));
    EXPECT_EQ(t.afFrameExtent_Slave[0], 400.0f);
    EXPECT_EQ(t.afFrameExtent_Slave[1], 300.0f);
    EXPECT_EQ(t.afFrameDiagonal_Slave[0], 500.0f);
    EXPECT_EQ(t.fDiagonalRatio_Slave, 1.0f);
    EXPECT_EQ(t.adSideLength_Master[1], 0.0);
    EXPECT_EQ(t.fDiagonalRatio_Master, 0.0f);
}

TEST_F(Lengths, TransferScalesAboutTheCentresAndShiftsOneAxis) {
    t.afFrameExtent_Master[0] = 400;
    t.afFrameExtent_Master[1] = 300;
    t.afFrameExtent_Slave[0] = 200;
    t.afFrameExtent_Slave[1] = 150;
    float afSource[] = {864, 486, 1064, 386}, afTarget[] = {-1, -1, -1, -1};
    DualCamAlign_CoordinateTransfer(afSource, afTarget, 0);
    EXPECT_EQ(t.dTransferScale, 0.5);
    EXPECT_EQ(t.dFrameExtentNorm_Master, 500.0);
    EXPECT_EQ(t.afFrameExtentCopy_Master[1], 300.0f);
    EXPECT_EQ(afTarget[0], -1.0f);
    m_tDualCamAlignParam.bUseSlaveShift = 0; // takes no part here
    DualCamAlign_CoordinateTransfer(afSource, afTarget, 2);
    const float fShift = m_tDualCamAlignParam.fSlaveShift;
    const float afAlongY[] = {500, 300 + fShift, 600, 250 + fShift};
    EXPECT_TRUE(std::equal(std::begin(afAlongY), std::end(afAlongY), afTarget));
    m_tDualCamAlignParam.bShiftAlongY = 0;
    DualCamAlign_CoordinateTransfer(afSource, afTarget, 1);
    EXPECT_EQ(afTarget[0], 500 + fShift);
    EXPECT_EQ(afTarget[1], 300.0f);
}

#include "Orvex_Alignment_Stages.h"
#include "image/region_threshold.h"
#include "support/plane.h"

#include <gtest/gtest.h>

using support::Plane;

namespace {

struct Frame {
    int nStatus;
    _POINTPOSITION tOuterLT, tOuterRD, tInnerLT, tInnerRD;
};

Frame Locate(Plane& t, int cx, int cy, int nMaster = 1) {
    Frame tFrame = {0, {-9, -9}, {-9, -9}, {-9, -9}, {-9, -9}};
    tFrame.nStatus =
        DualCamAlign_CalImageFrame(t.Data(), t.Columns(), t.Rows(), cx, cy, &tFrame.tOuterLT,
                                   &tFrame.tOuterRD, &tFrame.tInnerLT, &tFrame.tInnerRD, nMaster);
    return tFrame;
}

void ExpectPoint(_POINTPOSITION t, int x, int y) {
    EXPECT_EQ(t.x, x);
    EXPECT_EQ(t.y, y);
}

class FrameStages : public testing::Test {
protected:
    void SetUp() override {
        DualCamAlign_LoadParameters_ForAndroid();
        DualCamAlign_Initial();
    }
};

using FrameLocation = FrameStages;
using FrameBinarisation = FrameStages;

double Threshold(Plane& t, int x2, int y2) {
    double d = -1.0;
    orvex::CalcRegionThreshold(t.Data(), t.nColumns, 0, 0, x2, y2, 0.025, 0.5, 0.15, &d);
    return d;
}

} // namespace

TEST_F(FrameLocation, EnclosesBothFindsOfEachSide) {
    Plane t = support::UprightChart();
    t.Fill(281, 500, 290, 816, support::ubInk); // the left side lies 10 px farther in below the centre
    const Frame tFrame = Locate(t, 864, 486);
    ASSERT_EQ(tFrame.nStatus, 0);
    ExpectPoint(tFrame.tOuterLT, 279 - 40, 167 - 40);
    ExpectPoint(tFrame.tOuterRD, 1449 + 40, 805 + 40);
    ExpectPoint(tFrame.tInnerLT, 290 + 40, 167 + 40);
    ExpectPoint(tFrame.tInnerRD, 1449 - 40, 805 - 40);
}

TEST(RegionThreshold, BlendsOrCapsBetweenTheLevels) {
    Plane tHalf(10, 10, 200), tMore(10, 10, 200), tPale(10, 10, 200);
    tHalf.Fill(0, 0, 9, 4, 30);
    tMore.Fill(0, 0, 9, 3, 30);
    tPale.Fill(0, 0, 9, 3, 120);
    EXPECT_DOUBLE_EQ(Threshold(tHalf, 9, 9), 13.5) << "exactly half is not beyond half";
    EXPECT_DOUBLE_EQ(Threshold(tMore, 9, 9), 55.5);
    EXPECT_DOUBLE_EQ(Threshold(tPale, 9, 9), 90.0);
    EXPECT_EQ(Threshold(tMore, -1, 9), -1.0) << "empty";
    EXPECT_FALSE(orvex::CalcRegionThreshold(tMore.Data(), 10, 0, 0, 9, 9, 0.5, 0.7, 0.15, nullptr))
        << "dark level above bright level";
    EXPECT_FALSE(orvex::CalcRegionThreshold(tMore.Data(), 10, 0, 0, 9, 9, 1.0, 0.5, 0.15, nullptr))
        << "a fraction that is never exceeded";
}

TEST_F(FrameBinarisation, BlackensPieceByPieceUntilOneFails) {
    Plane tGrey(100, 80, 200), tWhite(100, 80, 255);
    tGrey.Fill(10, 10, 89, 19, 55).Fill(10, 20, 89, 29, 56); // half dark, half one level above the threshold
    const auto Run = [&](Plane& tBinary, int cx, int cy, int nMaster) {
        return DualCamAlign_BinaryImageFrame(tGrey.Data(), tBinary.Data(), 100, 80, cx, cy, {10, 10},
                                             {89, 69}, {20, 39}, {79, 59}, nMaster);
    };
    // Rows 10 to 39: 20 dark ones of 30, so the bright level is 56, the dark one 55 and the cap 25.2.
    Plane tBinary = tWhite;
    EXPECT_EQ(Run(tBinary, 50, 40, 1), 0x101001E) << "no row between the inner top and the centre";
    EXPECT_DOUBLE_EQ(m_tDualCamAlignData.adFrameThreshold_Master[ORVEX_LT][0], 0.45 * 56);
    EXPECT_EQ(m_tDualCamAlignData.adFrameThreshold_Master[ORVEX_LT][1], 0.0);
    EXPECT_EQ(tBinary.aPixels, tWhite.aPixels);

    tGrey.Fill(10, 20, 89, 39, 255).Fill(10, 10, 89, 12, 30);
    EXPECT_EQ(Run(tBinary, 50, 50, 2), 0) << "any other camera is the slave";
    const double dThreshold = m_tDualCamAlignData.adFrameThreshold_Slave[ORVEX_RT][0];
    EXPECT_DOUBLE_EQ(dThreshold, 30 + (255 - 30) * 0.15);
    EXPECT_EQ(tBinary.At(10, 12), 0);
    EXPECT_EQ(tBinary.At(10, 13), 0) << "55 lies below 63.75";
    EXPECT_EQ(tBinary.At(9, 12), 255);
    EXPECT_EQ(tBinary.At(10, 20), 255);

    Plane tUntouched = tWhite;
    EXPECT_EQ(Run(tUntouched, 10, 50, 1), 0x101001E) << "the first piece is empty";
    EXPECT_EQ(tUntouched.aPixels, tWhite.aPixels);
    m_tDualCamAlignParam.dFrameParam0_Slave = 1.0;
    EXPECT_EQ(Run(tUntouched, 50, 50, 0), 0x101001E) << "a dark share that no level exceeds";
    EXPECT_EQ(tUntouched.aPixels, tWhite.aPixels);
}

#include "image/binary_window.h"

#include "Orvex_Alignment_Stages.h"
#include "support/plane.h"

#include <gtest/gtest.h>

using namespace orvex;
using support::Plane;

namespace {

constexpr PictureSize tDefault = {1728, 972};
constexpr WindowRatios tRatios = {0.45, 0.45};

void ExpectWindow(CentreWindow t, std::int64_t x0, std::int64_t x1, std::int64_t y0, std::int64_t y1) {
    EXPECT_EQ(t.x0, x0);
    EXPECT_EQ(t.x1, x1);
    EXPECT_EQ(t.y0, y0);
    EXPECT_EQ(t.y1, y1);
}

Plane Binarised(Plane& tGrey, bool bMaster) {
    Plane tBinary(tGrey.nColumns, tGrey.nRows, 7);
    int aiPoints[4][2];
    unsigned short uwCenter[2] = {0, 0};
    EXPECT_EQ(DualCamAlign_BinaryImage(tGrey.Data(), tGrey.nColumns, tGrey.nRows, 0.6, aiPoints,
                                       tBinary.Data(), 0.45, 0.45, bMaster, uwCenter, false),
              1);
    return tBinary;
}

} // namespace

TEST(CentreWindow, FollowsPassCameraAndShift) {
    DualCamAlign_LoadParameters_ForAndroid();
    const unsigned short uwCenter[2] = {100, 900};
    ExpectWindow(WindowOfPass(tDefault, tRatios, true, uwCenter, false), 475, 1252, 267, 704);
    ExpectWindow(WindowOfPass(tDefault, tRatios, false, uwCenter, false), 475, 1252, 243, 680);
    ExpectWindow(WindowOfPass(tDefault, tRatios, false, uwCenter, true), -288, 488, 681, 1118);
    m_tDualCamAlignParam.bShiftAlongY = 0;
    ExpectWindow(WindowOfPass(tDefault, tRatios, false, uwCenter, false), 451, 1228, 267, 704);
    m_tDualCamAlignParam.bUseSlaveShift = 0;
    ExpectWindow(WindowOfPass(tDefault, tRatios, false, uwCenter, false), 475, 1252, 267, 704);
    // Clamped along the axis of the shift only, and there to the size itself.
    ExpectWindow(CoarseWindow(tDefault, {1.2, 1.2}, WindowShift{500, true}), -172, 1900, 403, 972);
}

TEST(CentreBinarisation, UniformPictureIsWhiteWithItsThresholdStored) {
    DualCamAlign_Initial();
    Plane tGrey(1728, 972, 200);
    EXPECT_EQ(Binarised(tGrey, true).aPixels, Plane(1728, 972, 255).aPixels);
    EXPECT_DOUBLE_EQ(m_tDualCamAlignData.dBinaryThreshold_Master, 121.8);
    EXPECT_EQ(m_tDualCamAlignData.dBinaryThreshold_Slave, 0.0);
    // Patches of 51 x 51 pixels over a divisor of 4 x 50 x 50 in a small picture.
    Plane tSmall(640, 480, 200);
    Binarised(tSmall, false);
    EXPECT_DOUBLE_EQ(m_tDualCamAlignData.dBinaryThreshold_Slave, 206 * 0.6);
}

TEST(CentreBinarisation, TheThresholdIsBrightAndSpecksGo) {
    Plane tGrey(1728, 972, 200);
    tGrey.Fill(600, 400, 640, 420, 0).Fill(900, 450, 909, 459, 121).Fill(920, 450, 929, 459, 122);
    tGrey.At(620, 410) = 200;               // enclosed by dark
    tGrey.At(800, 500) = 0;                 // alone in white
    Plane tBinary = Binarised(tGrey, true); // threshold 121.8
    EXPECT_EQ(tBinary.At(620, 410), 0);
    EXPECT_EQ(tBinary.At(800, 500), 255);
    EXPECT_EQ(tBinary.At(905, 455), 0);
    EXPECT_EQ(tBinary.At(925, 455), 255);
}

TEST(CleanSpecks, VisitsInPlaceInRasterOrderAndWrapsAtTheBorder) {
    // A plane of 4 x 3 with one byte row of white before and behind it, and a window over all of it.
    constexpr PictureSize tSize = {4, 3};
    const CentreWindow tWindow = {0, 3, 0, 2};
    const auto Cleaned = [&](std::vector<unsigned char> a) {
        std::vector<unsigned char> aGuarded(tSize.Pixels() + 2 * GuardBytes(tSize), 255);
        const auto pPlane = aGuarded.begin() + static_cast<std::ptrdiff_t>(GuardBytes(tSize));
        std::copy(a.begin(), a.end(), pPlane);
        CleanSpecks(tSize, tWindow, &*pPlane);
        return std::vector<unsigned char>(pPlane, pPlane + 12);
    };
    // The corner pixel at the right border has the dark left border of the next row as its neighbours: (3, 0)
    // sees (3, 1) below and, by linear address, (0, 1) to its right and (0, 2) below that, and stays.
    const std::vector<unsigned char> aWrapped = {255, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255, 255};
    EXPECT_EQ(Cleaned(aWrapped)[3], 0);
    // In place: the first dark pixel of a row of three goes and takes the others with it.
    EXPECT_EQ(Cleaned({255, 255, 255, 255, 0, 0, 0, 255, 255, 255, 255, 255}),
              std::vector<unsigned char>(12, 255));
}

#include "Orvex_Alignment_Stages.h"
#include "support/documented_status.h"
#include "support/get_align.h"
#include "support/random_rectangles.h"
#include "support/repetitions.h"

#include <gtest/gtest.h>

// What these pictures give is of no interest; that nothing is read or written out of bounds is: this file
// earns its keep under the sanitizers (`make test-asan`).

using namespace support;

TEST(HostilePictures, EverySizeUpTo64) {
    Random t(1);
    testing::internal::CaptureStdout();
    for (int nRows = 1; nRows <= 64; ++nRows)
        for (int nColumns = 1; nColumns <= 64; ++nColumns) {
            const Picture tPicture = Rectangles(t, nColumns, nRows);
            EXPECT_TRUE(IsDocumented(Align(tPicture, tPicture).nStatus)) << nColumns << " x " << nRows;
        }
    testing::internal::GetCapturedStdout();
}

TEST(HostilePictures, StagesSurviveHostileCentresRectanglesAndRatios) {
    Random t(3);
    constexpr int anHostile[] = {INT32_MIN, -70000, -1, 0, 1, 63, 64, 400, 65535, INT32_MAX};
    const auto Coordinate = [&] { return t.Int(0, 2) ? t.Int(-20, 420) : anHostile[t.Int(0, 9)]; };
    const auto Point = [&] { return _POINTPOSITION{Coordinate(), Coordinate()}; };
    const auto Ratio = [&] {
        constexpr double ad[] = {-1.0, 0.0, 0.45, 1.0, 3.0, 1e300, -1e300, __builtin_nan("")};
        return ad[t.Int(0, 7)];
    };
    DualCamAlign_LoadParameters_ForAndroid();
    for (int i = 0; i < Repetitions(2000); ++i) {
        Picture tGrey = Rectangles(t, t.Int(1, 400), t.Int(1, 300)), tBinary = tGrey;
        for (unsigned char& ub : tBinary.aPixels)
            ub = ub < 128 ? 0 : 255;
        const auto w = static_cast<unsigned int>(tGrey.nColumns), h = static_cast<unsigned int>(tGrey.nRows);
        unsigned char *const pGrey = tGrey.aPixels.data(), *const pBinary = tBinary.aPixels.data();
        _POINTPOSITION p[4] = {Point(), Point(), Point(), Point()};
        const int cx = Coordinate(), cy = Coordinate();
        for (auto& ad : m_tDualCamAlignData.adFrameThreshold_Master)
            ad[0] = ad[1] = i % 7 == 0 ? Ratio() : 100.0;
        for (const auto MeasureCorner : {DualCamAlign_NewMeasureLTPnt, DualCamAlign_NewMeasureRTPnt,
                                         DualCamAlign_NewMeasureLDPnt, DualCamAlign_NewMeasureRDPnt})
            EXPECT_TRUE(
                IsDocumented(MeasureCorner(pBinary, pGrey, w, h, cx, cy, p[0], p[1], p[2], p[3], i % 3)));
        DualCamAlign_BinaryImageFrame(pGrey, pBinary, w, h, cx, cy, p[0], p[1], p[2], p[3], i % 3);
        DualCamAlign_CalImageFrame(pGrey, w, h, cx, cy, &p[0], &p[1], &p[2], &p[3], i % 3);
        unsigned short uwCenter[2] = {static_cast<unsigned short>(cx), static_cast<unsigned short>(cy)};
        const double dX = Ratio(), dY = Ratio(), dRatio = Ratio();
        double dAngle;
        float afCentre[2];
        int nSpan;
        for (const bool bRefine : {false, true}) {
            DualCamAlign_BinaryImage(pGrey, tGrey.nColumns, tGrey.nRows, dRatio, nullptr, pBinary, dX, dY,
                                     i % 2 == 0, uwCenter, bRefine);
            EXPECT_TRUE(IsDocumented(DualCamAlign_CalculateIntersectionAndAngle(
                pBinary, pGrey, tGrey.nColumns, tGrey.nRows, &dAngle, afCentre, &nSpan, nullptr, nullptr,
                nullptr, dX, dY, i % 2 == 0, uwCenter, bRefine)));
        }
    }
}

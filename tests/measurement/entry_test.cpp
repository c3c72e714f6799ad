#include "Orvex_Alignment_Stages.h"
#include "support/failing_charts.h"
#include "support/get_align.h"

#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>

using namespace support;

TEST(Entry, OnePictureMayStandForBothCameras) {
    nWidth = nWidth_Slave = 1728;
    nHeight = nHeight_Slave = 972;
    std::vector<unsigned char> aCalibration = Calibration();
    unsigned char* const p = Picture(UprightChart()).OnHeap(); // freed once
    double adAngle[3];
    EXPECT_EQ(getAlign(p, p, &adAngle[0], &adAngle[1], &adAngle[2], aCalibration.data(), nullptr), 0u);
}

TEST(Entry, RefusesNullPointersAndUnusableSizes) {
    std::vector<unsigned char> aCalibration = Calibration();
    double adAngle[3] = {5, 5, 5};
    constexpr int nNone = -1;
    const auto Run = [&](int nNull) {
        const auto Angle = [&](int n) { return n == nNull ? nullptr : &adAngle[n]; };
        const auto Blank = [&](int n) { return n == nNull ? nullptr : Picture(Paper()).OnHeap(); };
        return getAlign(Blank(3), Blank(4), Angle(0), Angle(1), Angle(2),
                        nNull == 5 ? nullptr : aCalibration.data(), nullptr);
    };
    testing::internal::CaptureStdout();
    nWidth = nWidth_Slave = 1728;
    nHeight = nHeight_Slave = 972;
    for (int nNull = 0; nNull < 6; ++nNull)
        EXPECT_EQ(Run(nNull), 0x1020001u) << nNull;
    for (const auto& [nColumns, nRows] : {std::pair{0, 972},
                                          {1728, -1},
                                          {65536, 1},
                                          {1, 65536},
                                          {65535, 32769},
                                          {INT32_MIN, INT32_MIN},
                                          {INT32_MAX, INT32_MAX}})
        for (int* const pnSize : {&nWidth, &nWidth_Slave}) {
            nWidth = nWidth_Slave = 1728;
            nHeight = nHeight_Slave = 972;
            *pnSize = nColumns;
            (pnSize == &nWidth ? nHeight : nHeight_Slave) = nRows;
            EXPECT_EQ(Run(nNone), 0x1020002u) << nColumns << " x " << nRows;
        }
    double d = 0.0;
    unsigned char ub = 0;
    EXPECT_EQ(Orvex_Alignment_ForAndroid(&ub, &ub, 1, 1, 1, 1, &d, &d, &d, aCalibration.data(), nullptr),
              0x1020001u);
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "refused before anything else";
    for (const double dAngle : adAngle)
        EXPECT_EQ(dAngle, 5.0);
}

TEST(Entry, SpanStaysWhereNoBarIsFound) {
    DualCamAlign_LoadParameters_ForAndroid();
    Plane t = Paper();
    unsigned short auwCentre[2] = {864, 486};
    double dAngle = 0, dAux = 0;
    float afCentre[2] = {};
    int nSpan = 77;
    EXPECT_EQ(DualCamAlign_CalculateIntersectionAndAngle(t.aPixels.data(), t.aPixels.data(), t.nColumns,
                                                         t.nRows, &dAngle, afCentre, &nSpan, &dAux, &dAux,
                                                         &dAux, 0.45, 0.45, true, auwCentre, true),
              unsigned{ORVEX_CROSS_NO_COLUMN_RUN});
    EXPECT_EQ(nSpan, 77);
}

TEST(Entry, WorkingBufferCanBeReadAfterTheRun) {
    const Picture tChart = UprightChart();
    Align(tChart, tChart);
    ASSERT_NE(m_pCMainView.pGreenBuffer, nullptr);
    EXPECT_EQ(std::memcmp(m_pCMainView.pGreenBuffer, tChart.aPixels.data(), tChart.aPixels.size()), 0);
    EXPECT_EQ(m_pCMainView.pGreenBuffer[tChart.aPixels.size() + 486 * 1728 + 864], 0) << "binary plane";
    EXPECT_EQ(m_tDualCamAlignData.nCrossSpanX_Slave, 669) << "the bar ends inside the search window";
    const Plane tLarger(2000, 1500, ubPaper);
    for (const auto& [tMaster, tSlave] : {std::pair<Picture, Picture>{tChart, tLarger}, {tLarger, tChart}}) {
        Align(tMaster, tSlave);
        EXPECT_EQ(malloc_usable_size(m_pCMainView.pGreenBuffer) / tLarger.aPixels.size(), 3u) << "planes";
    }
}

#include "Orvex_Alignment_Stages.h"
#include "compare/bit_lines.h"
#include "compare/recorded_atan.h"
#include "core/to_integer.h"
#include "digests/cases.h"
#include "digests/drawn_chart.h"

#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <tuple>

using compare::BitLines;
using support::Plane;
using support::Random;

namespace digests {
namespace {

std::string Call(int n) {
    return "call_" + std::to_string(n);
}

// Rectangles of any grey value, and noise: pixels at every level next to each other.
Plane AnyPlane(Random& t, int nColumns, int nRows) {
    Plane tPlane(nColumns, nRows, static_cast<unsigned char>(t.Int(60, 250)));
    for (int i = t.Int(1, 6); i > 0; --i) {
        const int x = t.Int(-5, nColumns), y = t.Int(-5, nRows);
        const int x2 = x + t.Int(0, nColumns), y2 = y + t.Int(0, i % 2 ? 9 : nRows);
        tPlane.Fill(x, y, x2, y2, static_cast<unsigned char>(t.Int(0, 255)));
    }
    AddNoise(t, tPlane, t.Int(0, 3) == 0 ? 0 : t.Int(0, 90));
    return tPlane;
}

Plane Binarised(Plane t) {
    for (unsigned char& ub : t.aPixels)
        ub = ub < 128 ? 0 : 255;
    return t;
}

void StartAnew() {
    DualCamAlign_LoadParameters_ForAndroid();
    DualCamAlign_Initial();
}

void WriteState(std::ostream& tOut) {
    std::memset(&m_tDualCamAlignParam, 0x5A, sizeof m_tDualCamAlignParam);
    std::memset(&m_tDualCamAlignData, 0x5A, sizeof m_tDualCamAlignData);
    std::memset(&m_tTested, 0x5A, sizeof m_tTested);
    std::memset(m_pCMainView.anViewOption, 0x5A, sizeof m_pCMainView.anViewOption);
    DualCamAlign_LoadParameters_ForAndroid();
    BitLines(tOut, "stage/LoadParameters").AddParameters();
    DualCamAlign_Initial();
    const BitLines tLines(tOut, "stage/Initial");
    tLines.AddParameters();
    tLines.AddWorkingBlock();
    tLines.Add("anViewOption", m_pCMainView.anViewOption);
    tLines.Add("aubTested", m_tTested.aubTested);
}

void WriteBinaryImage(std::ostream& tOut) {
    const BitLines tLines(tOut, "stage/BinaryImage");
    constexpr double adRatios[] = {0.3, 0.45, 0.8, 1.0, 1.3, 3.0, 0.0, -0.5};
    for (int n = 0; n < 130; ++n) {
        Random t(static_cast<unsigned int>(n));
        StartAnew();
        m_tDualCamAlignParam.fSlaveShift = static_cast<float>(t.Real(-12, 12));
        m_tDualCamAlignParam.bShiftAlongY = static_cast<std::uint8_t>(t.Int(0, 1));
        m_tDualCamAlignParam.bUseSlaveShift = static_cast<std::uint8_t>(t.Int(0, 2));
        // Up to the size from which the patches at the window's corners are larger ones.
        const bool bLarge = n % 26 == 0;
        const int nColumns = bLarge ? 640 + t.Int(0, 1) : t.Int(1, 40),
                  nRows = bLarge ? 480 + t.Int(0, 1) : t.Int(1, 40);
        Plane tGrey(nColumns, nRows, static_cast<unsigned char>(bLarge ? 100 : t.Int(20, 255)));
        AddNoise(t, tGrey, t.Int(1, 30));
        unsigned short auwCenter[2] = {static_cast<unsigned short>(t.Int(0, nColumns)),
                                       static_cast<unsigned short>(n % 13 == 0 ? 65535 : t.Int(0, nRows))};
        Plane tBinary(nColumns, nRows, 7);
        // A whole ratio gives a threshold that grey values meet.
        const double dRatio = bLarge ? t.Real(0.9, 1.1) : n % 2 ? t.Int(1, 40) : t.Real(0, 40);
        const double dWidth = adRatios[t.Int(0, 7)], dHeight = adRatios[t.Int(0, 7)];
        const bool bMaster = t.Int(0, 1) == 0, bRefine = t.Int(0, 1) == 0;
        DualCamAlign_BinaryImage(tGrey.Data(), nColumns, nRows, dRatio, nullptr, tBinary.Data(), dWidth,
                                 dHeight, bMaster, auwCenter, bRefine);
        tLines.Add(Call(n) + "_thresholds", std::array{m_tDualCamAlignData.dBinaryThreshold_Master,
                                                       m_tDualCamAlignData.dBinaryThreshold_Slave});
        tLines.Digest(Call(n) + "_plane", tBinary.Data(), tBinary.aPixels.size());
    }
}

using Points = std::array<_POINTPOSITION, 4>;

std::vector<std::int32_t> Numbers(unsigned int nStatus, const Points& apt) {
    std::vector<std::int32_t> an = {static_cast<std::int32_t>(nStatus)};
    for (const _POINTPOSITION& pt : apt)
        an.insert(an.end(), {pt.x, pt.y});
    return an;
}

void SuitFrame(Random& t) {
    DualCamAlignParam& p = m_tDualCamAlignParam;
    for (std::int32_t* const pn : {&p.nFrameMargin_Master, &p.nFrameMargin_Slave})
        *pn = t.Int(0, 9);
    for (std::int32_t* const pn :
         {&p.nFrameOffsetX_Master, &p.nFrameOffsetX_Slave, &p.nFrameOffsetY_Master, &p.nFrameOffsetY_Slave})
        *pn = t.Int(3, 11);
    for (double* const pd :
         {&p.dFrameParam0_Master, &p.dFrameParam0_Slave, &p.dFrameParam2_Master, &p.dFrameParam2_Slave})
        *pd = t.Int(0, 1) ? t.Real(0, 0.3) : 0.25;
    for (double* const pd :
         {&p.dFrameParam1_Master, &p.dFrameParam1_Slave, &p.dFrameParam3_Master, &p.dFrameParam3_Slave})
        *pd = t.Int(0, 1) ? t.Real(0, 0.8) : 0.5;
    for (double* const pd : {&p.dFrameParam4_Master, &p.dFrameParam4_Slave})
        *pd = t.Real(0, 1);
}

// A frame around the centre, its sides' distances from it within a few pixels of the search's starts.
Plane AnyFrame(Random& t, int nColumns, int nRows, int cx, int cy) {
    Plane tPlane(nColumns, nRows, 200);
    const int x1 = cx - t.Int(12, 40), x2 = cx + t.Int(12, 40), y1 = cy - t.Int(12, 40),
              y2 = cy + t.Int(12, 40);
    const int nThick = t.Int(4, 9), nInk = t.Int(20, 190);
    tPlane.Fill(x1, y1, x2, y2, static_cast<unsigned char>(nInk));
    tPlane.Fill(x1 + nThick, y1 + nThick, x2 - nThick, y2 - nThick, 200);
    if (t.Int(0, 2) == 0) {
        const int an[] = {x1 + t.Int(-3, 9), x1 + nThick + t.Int(0, 9)};
        tPlane.Fill(an[0], cy, an[1], y2, static_cast<unsigned char>(nInk));
    }
    AddNoise(t, tPlane, t.Int(0, 6));
    return tPlane;
}

void WriteFrame(std::ostream& tOut) {
    const BitLines tLocation(tOut, "stage/CalImageFrame"), tBinarisation(tOut, "stage/BinaryImageFrame");
    for (int n = 0; n < 120; ++n) {
        Random t(static_cast<unsigned int>(n));
        StartAnew();
        SuitFrame(t);
        const int nColumns = t.Int(70, 100), nRows = t.Int(70, 100);
        const int cx = nColumns / 2 + t.Int(-9, 9), cy = nRows / 2 + t.Int(-9, 9), nMaster = t.Int(0, 2);
        Plane tGrey = AnyFrame(t, nColumns, nRows, cx, cy), tBinary(nColumns, nRows, 255);
        Points p;
        p.fill({-77, -77});
        const int nFound = DualCamAlign_CalImageFrame(tGrey.Data(), tGrey.Columns(), tGrey.Rows(), cx, cy,
                                                      &p[0], &p[1], &p[2], &p[3], nMaster);
        tLocation.Add(Call(n), Numbers(static_cast<unsigned int>(nFound), p));
        if (nFound != 0 || n % 4 == 0) {
            p = {{{t.Int(-1, 9), t.Int(-1, 9)},
                  {nColumns - t.Int(0, 9), nRows - t.Int(0, 9)},
                  {t.Int(9, 30), t.Int(9, 30)},
                  {nColumns - t.Int(10, 30), nRows - t.Int(10, 30)}}};
            if (n % 3 == 0)
                tGrey = AnyPlane(t, nColumns, nRows);
        }
        const int nStatus =
            DualCamAlign_BinaryImageFrame(tGrey.Data(), tBinary.Data(), tGrey.Columns(), tGrey.Rows(), cx, cy,
                                          p[0], p[1], p[2], p[3], nMaster);
        tBinarisation.Add(Call(n) + "_status", nStatus);
        tBinarisation.Add(Call(n) + "_master_thresholds", m_tDualCamAlignData.adFrameThreshold_Master);
        tBinarisation.Add(Call(n) + "_slave_thresholds", m_tDualCamAlignData.adFrameThreshold_Slave);
        tBinarisation.Digest(Call(n) + "_plane", tBinary.Data(), tBinary.aPixels.size());
    }
    // Thresholds of -2, -1.5, -1, -0.5 and 0, and of 255 and 256.
    StartAnew();
    for (int n = 0; n <= 6; ++n) {
        const unsigned char ubPaper = n < 5 ? 200 : 255;
        m_tDualCamAlignParam.dFrameParam4_Master = n < 5 ? (n - 4) / 400.0 : 250.0 / 255 + n / 255.0;
        Plane tGrey(40, 40, ubPaper), tBinary(40, 40, 255);
        tGrey.Fill(5, 5, 34, 34, 0);
        tGrey.Fill(10, 10, 29, 29, ubPaper);
        DualCamAlign_BinaryImageFrame(tGrey.Data(), tBinary.Data(), 40, 40, 20, 20, {2, 2}, {37, 37},
                                      {12, 12}, {27, 27}, 1);
        tBinarisation.Add("at_limits_" + Call(n), m_tDualCamAlignData.adFrameThreshold_Master);
        tBinarisation.Digest("at_limits_" + Call(n) + "_plane", tBinary.Data(), tBinary.aPixels.size());
    }
}

void WriteCross(std::ostream& tOut) {
    const BitLines tLines(tOut, "stage/Cross");
    for (int n = 0; n < 40; ++n) {
        Random t(static_cast<unsigned int>(n));
        StartAnew();
        m_tDualCamAlignParam.fSlaveShift = static_cast<float>(t.Real(-5, 5));
        const Layout tLayout = AnyLayout(t);
        Plane tGrey = AnyChart(t, tLayout), tBinary(tGrey.nColumns, tGrey.nRows, 7);
        const bool bMaster = t.Int(0, 1) == 0;
        const double dWidth = 1.6 * tLayout.nHalfWidth / tLayout.nColumns,
                     dHeight = 1.6 * tLayout.nHalfHeight / tLayout.nRows;
        unsigned short auwCenter[2] = {};
        double dAngle = 0;
        float afCentre[2] = {};
        int nSpan = 0;
        for (const bool bRefine : {false, true}) {
            DualCamAlign_BinaryImage(tGrey.Data(), tGrey.nColumns, tGrey.nRows, 0.6, nullptr, tBinary.Data(),
                                     dWidth, dHeight, bMaster, auwCenter, bRefine);
            const unsigned int nStatus = DualCamAlign_CalculateIntersectionAndAngle(
                tBinary.Data(), tGrey.Data(), tGrey.nColumns, tGrey.nRows, &dAngle, afCentre, &nSpan, nullptr,
                nullptr, nullptr, dWidth, dHeight, bMaster, auwCenter, bRefine);
            tLines.Add(Call(n) + (bRefine ? "_refined" : "_coarse"),
                       std::array{static_cast<int>(nStatus), nSpan, int{auwCenter[0]}, int{auwCenter[1]}});
        }
        tLines.Add(Call(n) + "_centre", afCentre);
    }
}

constexpr std::array apMeasureCorner = {DualCamAlign_NewMeasureLTPnt, DualCamAlign_NewMeasureRTPnt,
                                        DualCamAlign_NewMeasureLDPnt, DualCamAlign_NewMeasureRDPnt};

void WriteCornerPoints(std::ostream& tOut) {
    const BitLines tLines(tOut, "stage/CornerPoints");
    for (int n = 0; n < 100; ++n) {
        Random t(static_cast<unsigned int>(n));
        StartAnew();
        Layout tLayout = {t.Int(168, 210), t.Int(168, 210), 0,   0, t.Int(46, 60),
                          t.Int(46, 60),   t.Int(3, 9),     200, 30};
        tLayout.nCentreX = tLayout.nColumns / 2 + t.Int(-4, 4);
        tLayout.nCentreY = tLayout.nRows / 2 + t.Int(-4, 4);
        const int cx = tLayout.nCentreX, cy = tLayout.nCentreY;
        const int nHalfWidth = tLayout.nHalfWidth, nHalfHeight = tLayout.nHalfHeight;
        Plane tGrey = AnyChart(t, tLayout), tBinary = Binarised(tGrey);
        tBinary.Fill(cx - nHalfWidth + 26, cy - nHalfHeight + 26, cx + nHalfWidth - 26, cy + nHalfHeight - 26,
                     255);
        for (auto& ad : m_tDualCamAlignData.adFrameThreshold_Master)
            for (double& d : ad)
                d = t.Real(60, 140);
        const auto Outward = [&](int nAt, int nSign) { return nAt + nSign * t.Int(18, 26); };
        const Points p = {{{Outward(cx - nHalfWidth, -1), Outward(cy - nHalfHeight, -1)},
                           {Outward(cx + nHalfWidth, 1), Outward(cy + nHalfHeight, 1)},
                           {Outward(cx - nHalfWidth, 1), Outward(cy - nHalfHeight, 1)},
                           {Outward(cx + nHalfWidth, -1), Outward(cy + nHalfHeight, -1)}}};
        const int nMaster = t.Int(0, 2), nFarX = 5 * (n % 7), nFarY = 5 * (n % 6);
        std::vector<unsigned int> anStatus;
        for (const auto MeasureCorner : apMeasureCorner) {
            _POINTPOSITION pt = {cx + t.Int(-nFarX, 2), cy + t.Int(-2, nFarY)};
            if (n % 6 == 5) // at the picture's border, or behind it
                (n % 12 == 5 ? pt.x : pt.y) =
                    t.Int(0, 1) == 0 ? t.Int(-1, 1)
                                     : (n % 12 == 5 ? tGrey.nColumns : tGrey.nRows) - t.Int(-1, 1);
            anStatus.push_back(MeasureCorner(tBinary.Data(), tGrey.Data(), tGrey.Columns(), tGrey.Rows(),
                                             pt.x, pt.y, p[0], p[1], p[2], p[3], nMaster));
        }
        tLines.Add(Call(n) + "_status", anStatus);
        tLines.Add(Call(n) + "_master", m_tDualCamAlignData.afCornerPoint_Master);
        tLines.Add(Call(n) + "_slave", m_tDualCamAlignData.afCornerPoint_Slave);
    }
}

// Corner points, sides, transfer and angles of a camera pair that nobody photographed.
void WriteNumbers(std::ostream& tOut) {
    for (unsigned int n = 0; n < 20; ++n) {
        Random t(n);
        const BitLines tLines(tOut, "stage/Numbers_" + std::to_string(n));
        StartAnew();
        DualCamAlignData& d = m_tDualCamAlignData;
        DualCamAlignParam& p = m_tDualCamAlignParam;
        for (auto* const paf : {&d.afCornerPoint_Master, &d.afCornerPoint_Slave})
            for (int i = 0; i < ORVEX_CORNERS; ++i) {
                (*paf)[i][0] = static_cast<float>(t.Real(0, 30) + (i >= ORVEX_RT ? 1200 : 100));
                (*paf)[i][1] = static_cast<float>(t.Real(0, 30) + (i % 2 != 0 ? 700 : 60));
            }
        for (int* const pn : {&m_pCMainView.nWidth_Master, &m_pCMainView.nHeight_Master,
                              &m_pCMainView.nWidth_Slave, &m_pCMainView.nHeight_Slave})
            *pn = t.Int(300, 2000);
        for (double* const pd : {&p.dPixelScaleX_Slave, &p.dPixelScaleY_Slave, &p.dPixelScaleX_Master,
                                 &p.dPixelScaleY_Master, &p.dChartHalfSpanX, &p.dChartHalfSpanY})
            *pd = t.Real(100, 900);
        p.nChartDistance = t.Int(100, 900);
        p.fSlaveShift = static_cast<float>(t.Real(-30, 30));
        p.bShiftAlongY = static_cast<std::uint8_t>(t.Int(0, 2));
        d.dCrossAngle_Master = t.Real(-2, 2);
        d.dCrossAngle_Slave = n % 5 == 0 ? d.dCrossAngle_Master : t.Real(-2, 2);
        if (n % 5 == 0) // one picture against itself: zeros keep their sign
            std::memcpy(d.afCornerPoint_Slave, d.afCornerPoint_Master, sizeof d.afCornerPoint_Slave);
        if (n == 19) // sides of no length
            std::memset(d.afCornerPoint_Slave, 0, sizeof d.afCornerPoint_Slave);
        DualCamAlign_NewMeasureSquareLength(d.afFrameExtent_Master, true);
        DualCamAlign_NewMeasureSquareLength(n == 7 ? nullptr : d.afFrameExtent_Slave, false);
        float afSource[6], afTarget[6] = {-77, -77, -77, -77, -77, -77};
        for (float& f : afSource)
            f = static_cast<float>(t.Real(0, 2000));
        DualCamAlign_CoordinateTransfer(afSource, n == 8 ? nullptr : afTarget, static_cast<int>(n % 4));
        // Points that come to lie near 0, where single precision shows the last bits of the double one.
        float afNear[40], afNearTarget[40];
        const bool bAlongY = p.bShiftAlongY != 0;
        for (int i = 0; i < 40; ++i) {
            const bool bY = i % 2 == 1;
            const double dMaster = bY ? m_pCMainView.nHeight_Master : m_pCMainView.nWidth_Master;
            const double dSlave = bY ? m_pCMainView.nHeight_Slave : m_pCMainView.nWidth_Slave;
            const double dShift = bY == bAlongY ? static_cast<double>(p.fSlaveShift) : 0.0;
            afNear[i] =
                static_cast<float>(dMaster / 2 - (dSlave / 2 + dShift) / d.dTransferScale + 1e-4 * (i / 2));
        }
        if (n < 19)
            DualCamAlign_CoordinateTransfer(afNear, afNearTarget, 20);
        atAtanCalls.clear();
        DualCamAlign_FirstResultJudgement();
        tLines.Add("afTarget", afTarget);
        if (n < 19)
            tLines.Add("afNearTarget", afNearTarget);
        tLines.AddAtans();
        tLines.AddWorkingBlock();
    }
}

void WriteGreyPlane(std::ostream& tOut) {
    const BitLines tLines(tOut, "stage/GetGValueFromRGB");
    constexpr long anSizes[][2] = {{3, 2},   {0, 5}, {-1, 4}, {65536, 32768}, {(1L << 32) + 3, 1},
                                   {-2, -3}, {1, 1}};
    for (const auto& [nColumns, nRows] : anSizes) {
        unsigned char aubSource[8] = {1, 2, 3, 4, 5, 6, 7, 8}, aubTarget[8] = {};
        GetGValueFromRGB(aubSource, nColumns, nRows, aubTarget);
        tLines.Add(std::to_string(nColumns) + "x" + std::to_string(nRows), aubTarget);
    }
}

// Every stage with each pointer null in turn, and with sizes around the limits.
void WriteRefusals(std::ostream& tOut) {
    const BitLines tLines(tOut, "stage/refusals");
    constexpr int anSizes[][2] = {{300, 300}, {300, 65536}, {65536, 300},  {3, 2},     {0, 2},
                                  {2, 0},     {-1, 2},      {2, -1},       {65535, 1}, {1, 65535},
                                  {65536, 1}, {1, 65536},   {65535, 32769}};
    StartAnew();
    DualCamAlignParam& p = m_tDualCamAlignParam;
    p.nFrameOffsetX_Master = p.nFrameOffsetY_Master = 80;
    p.nFrameMargin_Master = 24;
    Points aptFrame = {};
    for (const auto& [nColumns, nRows] : anSizes) {
        // A chart that every stage would measure, were it not for the size.
        Plane tGrey(std::max(nColumns, 300), std::max(nColumns < 32769 ? nRows : 300, 300), 200);
        tGrey.Fill(45, 45, 254, 254, 40).Fill(54, 54, 245, 245, 200);
        tGrey.Fill(95, 146, 204, 153, 40).Fill(146, 95, 153, 204, 40);
        Plane tBinary = Binarised(tGrey);
        for (int nNull = 0; nNull < 7; ++nNull) {
            const auto Unless = [&](int n, auto* pValue) { return n == nNull ? nullptr : pValue; };
            unsigned char *const pGrey = Unless(1, tGrey.Data()), *const pBinary = Unless(2, tBinary.Data());
            const auto w = static_cast<unsigned int>(nColumns), h = static_cast<unsigned int>(nRows);
            unsigned short auwCenter[2] = {150, 150};
            double dAngle = 0.0;
            float afCentre[2] = {};
            int nSpan = 0;
            Points apt = {};
            std::vector<unsigned int> an;
            for (const bool bRefine : {false, true}) {
                an.push_back(static_cast<unsigned int>(
                    DualCamAlign_BinaryImage(pGrey, nColumns, nRows, 0.6, nullptr, pBinary, 0.45, 0.45, true,
                                             Unless(3, auwCenter), bRefine)));
                an.push_back(DualCamAlign_CalculateIntersectionAndAngle(
                    pBinary, pGrey, nColumns, nRows, Unless(4, &dAngle), Unless(5, afCentre),
                    Unless(6, &nSpan), nullptr, nullptr, nullptr, 0.45, 0.45, true, Unless(3, auwCenter),
                    bRefine));
            }
            an.push_back(static_cast<unsigned int>(
                DualCamAlign_CalImageFrame(pGrey, w, h, 150, 150, Unless(3, &apt[0]), Unless(4, &apt[1]),
                                           Unless(5, &apt[2]), Unless(6, &apt[3]), 1)));
            if (an.back() == ORVEX_OK)
                aptFrame = apt;
            apt = aptFrame;
            an.push_back(static_cast<unsigned int>(DualCamAlign_BinaryImageFrame(
                pGrey, pBinary, w, h, 150, 150, apt[0], apt[1], apt[2], apt[3], 1)));
            for (const auto MeasureCorner : apMeasureCorner)
                an.push_back(
                    MeasureCorner(pBinary, pGrey, w, h, 150, 150, apt[0], apt[1], apt[2], apt[3], 1));
            GetGValueFromRGB(pGrey, 3, 2, pBinary);
            tLines.Add(std::to_string(nColumns) + "x" + std::to_string(nRows) + "_" + std::to_string(nNull),
                       an);
        }
    }
    Plane tGrey(3, 2, 100);
    double adValues[] = {1.0, 2.0};
    unsigned short auwIndices[] = {0, 1};
    bubblesort(nullptr, auwIndices, 2);
    bubblesort(adValues, nullptr, 2);
    bubblesort(adValues, auwIndices, INT32_MIN);
    tLines.Add("bubblesort", adValues);
    for (const auto& [nMasterRows, nSlaveRows, bMaster, bSlave] :
         {std::tuple{2, 2, false, true}, {2, 2, true, false}, {0, 2, true, true}, {2, 65536, true, true}}) {
        m_pCMainView.nWidth_Master = m_pCMainView.nWidth_Slave = 3;
        m_pCMainView.nHeight_Master = nMasterRows;
        m_pCMainView.nHeight_Slave = nSlaveRows;
        testing::internal::CaptureStdout();
        const unsigned int nStatus =
            DualCamAlign_Calculation(bMaster ? tGrey.Data() : nullptr, bSlave ? tGrey.Data() : nullptr);
        std::fflush(stdout);
        tLines.Text("Calculation_" + std::to_string(nStatus), testing::internal::GetCapturedStdout());
    }
}

} // namespace

void WriteStages(std::ostream& tOut) {
    WriteState(tOut);
    WriteGreyPlane(tOut);
    WriteBinaryImage(tOut);
    WriteFrame(tOut);
    WriteCross(tOut);
    WriteCornerPoints(tOut);
    WriteNumbers(tOut);
    WriteRefusals(tOut);
}

} // namespace digests

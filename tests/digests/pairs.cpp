#include "Orvex_Alignment_Stages.h"
#include "compare/measured_pair.h"
#include "compare/recorded_atan.h"
#include "digests/cases.h"
#include "digests/drawn_chart.h"
#include "entry/autofocus_record.h"
#include "support/failing_charts.h"
#include "support/varied_pairs.h"

#include <cstdio>
#include <gtest/gtest.h>

using compare::BitLines;
using namespace support;

namespace digests {
namespace {

std::string CaseName(const char* szGroup, unsigned int n) {
    char sz[40];
    std::snprintf(sz, sizeof sz, "%s/%03u", szGroup, n);
    return sz;
}

// Parameters that suit a camera's layout, each different; the search window reaches to the frame's sides. The
// record holds the two cameras side by side under two suffixes.
#define SUIT(Camera, tLayout)                                                                                \
    p.dBinaryRatio_##Camera = t.Int(0, 5) == 0 ? t.Real(0.8, 0.95) : t.Real(0.4, 0.8);                       \
    p.dSearchWidthRatio_##Camera =                                                                           \
        2.0 * (tLayout.nHalfWidth - tLayout.nThickness - t.Int(8, 34)) / tLayout.nColumns;                   \
    p.dSearchHeightRatio_##Camera =                                                                          \
        2.0 * (tLayout.nHalfHeight - tLayout.nThickness - t.Int(14, 30)) / tLayout.nRows;                    \
    p.nFrameMargin_##Camera = t.Int(24, 32);                                                                 \
    p.nFrameOffsetX_##Camera = tLayout.nHalfWidth - tLayout.nThickness - t.Int(4, 12);                       \
    p.nFrameOffsetY_##Camera = tLayout.nHalfHeight - tLayout.nThickness - t.Int(4, 12);                      \
    p.dFrameParam0_##Camera = t.Real(0.01, 0.05);                                                            \
    p.dFrameParam1_##Camera = t.Real(0.3, 0.6);                                                              \
    p.dFrameParam2_##Camera = t.Real(0.005, 0.05);                                                           \
    p.dFrameParam3_##Camera = t.Real(0.3, 0.6);                                                              \
    p.dFrameParam4_##Camera = t.Real(0.15, 0.5);                                                             \
    p.dPixelScaleX_##Camera = t.Real(500, 900);                                                              \
    p.dPixelScaleY_##Camera = t.Real(500, 900);                                                              \
    p.nSensorWidth_##Camera = static_cast<std::uint32_t>(t.Int(1000, 3000));                                 \
    p.nSensorHeight_##Camera = static_cast<std::uint32_t>(t.Int(1000, 3000))

void Suit(Random& t, const Layout& tMaster, const Layout& tSlave) {
    DualCamAlignParam& p = m_tDualCamAlignParam;
    SUIT(Master, tMaster);
    SUIT(Slave, tSlave);
    p.fSlaveShift = static_cast<float>(t.Real(-20, 20));
    p.bShiftAlongY = static_cast<std::uint8_t>(t.Int(0, 1));
    p.bUseSlaveShift = static_cast<std::uint8_t>(t.Int(0, 1));
    if (const int nBelow = tSlave.nCentreY - tSlave.nRows / 2; nBelow > 30) {
        p.fSlaveShift = static_cast<float>(nBelow);
        p.bShiftAlongY = p.bUseSlaveShift = 1;
    }
    p.nChartDistance = t.Int(300, 900);
    p.dChartHalfSpanX = t.Real(100, 200);
    p.dChartHalfSpanY = t.Real(100, 200);
}

void WriteDrawnPair(const BitLines& tLines, Random& t) {
    const bool bLow = t.Int(0, 5) == 0;
    const Layout tMasterLayout = bLow ? LowLayout(t, true) : AnyLayout(t);
    Layout tSlaveLayout = bLow ? LowLayout(t, false) : t.Int(0, 2) == 0 ? AnyLayout(t) : tMasterLayout;
    tSlaveLayout.nCentreX += t.Int(-6, 6);
    Plane tMaster = AnyChart(t, tMasterLayout), tSlave = AnyChart(t, tSlaveLayout);
    DualCamAlign_LoadParameters_ForAndroid();
    DualCamAlign_Initial();
    Suit(t, tMasterLayout, tSlaveLayout);
    DualCamAlignView& tView = m_pCMainView;
    tView.nWidth_Master = tMaster.nColumns;
    tView.nHeight_Master = tMaster.nRows;
    tView.nWidth_Slave = tSlave.nColumns;
    tView.nHeight_Slave = tSlave.nRows;
    tLines.Digest("master_picture", tMaster.aPixels.data(), tMaster.aPixels.size());
    tLines.Digest("slave_picture", tSlave.aPixels.data(), tSlave.aPixels.size());
    testing::internal::CaptureStdout();
    atAtanCalls.clear();
    const unsigned int nStatus = DualCamAlign_Calculation(tMaster.Data(), tSlave.Data());
    if (nStatus == ORVEX_OK)
        DualCamAlign_FirstResultJudgement();
    std::fflush(stdout);
    const std::string strOutput = testing::internal::GetCapturedStdout();
    tLines.Add("status", nStatus);
    tLines.Text("standard_output", strOutput);
    tLines.AddAtans();
    tLines.AddWorkingBlock();
    // The planes are those of the camera that was measured last.
    const std::size_t nPlane = std::max(tMaster.aPixels.size(), tSlave.aPixels.size());
    const bool bMaster = strOutput.find("Master") != std::string::npos;
    const std::size_t nLast = bMaster ? tMaster.aPixels.size() : tSlave.aPixels.size();
    tLines.Digest("grey_plane", tView.pGreenBuffer, nLast);
    tLines.Digest("binary_plane", tView.pGreenBuffer + nPlane, nLast);
}

} // namespace

void WriteDrawnPairs(std::ostream& tOut) {
    for (unsigned int n = 0; n < 200; ++n) {
        Random t(n);
        WriteDrawnPair(BitLines(tOut, CaseName("drawn", n)), t);
    }
}

void WriteFailingPairs(std::ostream& tOut) {
    const Picture tGood = UprightChart();
    unsigned int n = 0;
    for (const Plane& t : FailingCharts()) {
        compare::AddPair(BitLines(tOut, CaseName("failing", n++)), "drawn", t, tGood);
        compare::AddPair(BitLines(tOut, CaseName("failing", n++)), "drawn", tGood, t);
    }
    compare::AddPair(BitLines(tOut, CaseName("failing", n)), "drawn", tGood, tGood);
}

void WriteRenderedPairs(std::ostream& tOut) {
    for (unsigned int n = 48; n < 72; ++n) {
        const chart::Pair t = VariedPair(n);
        compare::AddPair(BitLines(tOut, CaseName("rendered", n)), "rendered", t.tMaster, t.tSlave);
    }
}

} // namespace digests

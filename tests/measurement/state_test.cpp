#include "Orvex_Alignment_Stages.h"
#include "support/failing_charts.h"
#include "support/get_align.h"

#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>

using namespace support;

namespace {

// All that a run leaves behind, as bytes.
struct Trace {
    unsigned int nStatus;
    std::array<unsigned char, sizeof(DualCamAlignData)> aData;
    std::array<unsigned char, sizeof(_AFPROTECT)> aRecord;

    bool operator==(const Trace&) const = default;
};

Trace Measure(const Picture& tMaster, const Picture& tSlave) {
    std::vector<unsigned char> aMaster = tMaster.aPixels, aSlave = tSlave.aPixels,
                               aCalibration = Calibration();
    double dRx, dRy, dRz;
    _AFPROTECT tRecord = {};
    Trace t;
    t.nStatus = Orvex_Alignment_ForAndroid(aMaster.data(), aSlave.data(), tMaster.nColumns, tMaster.nRows,
                                           tSlave.nColumns, tSlave.nRows, &dRx, &dRy, &dRz,
                                           aCalibration.data(), &tRecord);
    std::memcpy(t.aData.data(), &m_tDualCamAlignData, sizeof m_tDualCamAlignData);
    std::memcpy(t.aRecord.data(), &tRecord, sizeof tRecord);
    return t;
}

} // namespace

TEST(State, AfterAnotherPairTheSamePairGivesTheSameBits) {
    const chart::Pair tA = NoisyPair({0.2, -0.1, 0.3}, {0.7, -0.8, 1.2}, 1),
                      tB = NoisyPair({}, {-1, 1, -0.4}, 2);
    const Trace tFirst = Measure(tA.tMaster, tA.tSlave);
    ASSERT_EQ(tFirst.nStatus, 0u);
    EXPECT_FALSE(Measure(tB.tMaster, tB.tSlave) == tFirst);
    EXPECT_TRUE(Measure(tA.tMaster, tA.tSlave) == tFirst);
    for (const Plane& tFailing : {Paper(), CentreAtFramesTop(), WithoutRightDown()}) {
        Measure(tA.tMaster, tFailing);
        Measure(tFailing, tA.tSlave);
        EXPECT_TRUE(Measure(tA.tMaster, tA.tSlave) == tFirst);
    }
}

TEST(State, WorkingBufferCanBeReadAfterTheRun) {
    const Picture tChart = UprightChart();
    Measure(tChart, tChart);
    ASSERT_NE(m_pCMainView.pGreenBuffer, nullptr);
    EXPECT_EQ(std::memcmp(m_pCMainView.pGreenBuffer, tChart.aPixels.data(), tChart.aPixels.size()), 0);
    EXPECT_EQ(m_pCMainView.pGreenBuffer[tChart.aPixels.size() + 486 * 1728 + 864], 0) << "binary plane";
    EXPECT_EQ(m_tDualCamAlignData.nCrossSpanX_Slave, 669) << "the bar ends inside the search window";
    const Plane tLarger(2000, 1500, ubPaper);
    for (const auto& [tMaster, tSlave] : {std::pair<Picture, Picture>{tChart, tLarger}, {tLarger, tChart}}) {
        Measure(tMaster, tSlave);
        EXPECT_EQ(malloc_usable_size(m_pCMainView.pGreenBuffer) / tLarger.aPixels.size(), 3u) << "planes";
    }
}

#include "support/failing_charts.h"
#include "support/trace.h"

#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>

using namespace support;

namespace {

Trace Measure(const Picture& tMaster, const Picture& tSlave) {
    return TraceOf(Align(tMaster, tSlave));
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

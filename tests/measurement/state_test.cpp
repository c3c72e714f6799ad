#include "Orvex_Alignment_Stages.h"
#include "support/get_align.h"

#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>

using namespace support;

TEST(State, WorkingBufferCanBeReadAfterTheRun) {
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

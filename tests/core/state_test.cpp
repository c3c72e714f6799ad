#include "Orvex_Alignment_Stages.h"

#include <bit>
#include <cstring>
#include <gtest/gtest.h>

TEST(Parameters, LoadTheDefaultsTwiceAlike) {
    std::memset(&m_tDualCamAlignParam, 0x5A, sizeof m_tDualCamAlignParam);
    const DualCamAlignParam& t = *DualCamAlign_LoadParameters_ForAndroid();
    ASSERT_EQ(&t, &m_tDualCamAlignParam);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(t.dPixelScaleX_Master), 0x40886F6ECBFB15B5u);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(t.dPixelScaleY_Slave), 0x40821E0EF34D6A16u);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(t.fSlaveShift), 0xC1C1BC7Au);
    EXPECT_EQ(t.dFrameParam2_Slave, 0.01);
    EXPECT_EQ(t.anReservedParam[2], 130);
    EXPECT_EQ(t.nParamState, 0x5A5A5A5A) << "a field without default is left alone";
    DualCamAlignParam tFirst;
    std::memcpy(&tFirst, &t, sizeof t);
    DualCamAlign_LoadParameters_ForAndroid();
    EXPECT_EQ(std::memcmp(&tFirst, &t, sizeof t), 0);
}

TEST(WorkingState, InitialClearsAllButItsFlags) {
    std::memset(&m_tDualCamAlignData, 0xFF, sizeof m_tDualCamAlignData);
    std::memset(&m_tTested, 0xFF, sizeof m_tTested);
    DualCamAlign_Initial();
    DualCamAlignData tExpected;
    std::memset(&tExpected, 0, sizeof tExpected);
    tExpected.bInitFlag0 = tExpected.bInitFlag1 = tExpected.bInitFlag2 = tExpected.bInitFlag3 = 1;
    EXPECT_EQ(std::memcmp(&m_tDualCamAlignData, &tExpected, sizeof tExpected), 0);
    for (const std::uint8_t ub : m_tTested.aubTested)
        EXPECT_EQ(ub, 0);
    constexpr std::uint32_t anOption[] = {0, 1, 1, 1, 1, 0, 1, 0};
    EXPECT_TRUE(std::equal(std::begin(anOption), std::end(anOption), m_pCMainView.anViewOption));
    EXPECT_EQ(m_tDualCamAlignParam.nParamState, 1);
    EXPECT_EQ(m_tDualCamAlignParam.nParamReserved1, 0);
}

TEST(GreyPlane, CopiesTheSignedProductOfTheLow32Bits) {
    unsigned char aubSource[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    const struct {
        long nColumns, nRows;
        int nCopied;
    } at[] = {{3, 2, 6}, {0, 5, 0}, {-1, 4, 0}, {65536, 32768, 0}, {(1L << 32) + 3, 1, 3}, {-2, -3, 6}};
    for (const auto& t : at) {
        unsigned char aubTarget[8] = {};
        GetGValueFromRGB(aubSource, t.nColumns, t.nRows, aubTarget);
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(aubTarget[i], i < t.nCopied ? aubSource[i] : 0) << t.nColumns << " x " << t.nRows;
    }
}

#include "Orvex_Alignment_Stages.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

class Judgement : public testing::Test {
protected:
    void SetUp() override {
        DualCamAlign_LoadParameters_ForAndroid();
        DualCamAlign_Initial();
        for (int i = 0; i < ORVEX_SIDES; ++i)
            t.adSideLength_Master[i] = t.adSideLength_Slave[i] = 1000.0;
    }
    DualCamAlignData& t = m_tDualCamAlignData;
};

} // namespace

TEST_F(Judgement, EqualMeasurementsGiveNegativeZero) {
    ASSERT_EQ(DualCamAlign_FirstResultJudgement(), 0u);
    for (const double d : {t.dRx, t.dRy, t.dRz}) {
        EXPECT_EQ(d, 0.0);
        EXPECT_TRUE(std::signbit(d));
    }
}

TEST_F(Judgement, SlaveMinusMasterWithTheResultsSigns) {
    t.adSideLength_Slave[ORVEX_LEFT] = 1010.0;
    t.adSideLength_Slave[ORVEX_TOP] = 1010.0;
    t.dCrossAngle_Master = 0.25;
    t.dCrossAngle_Slave = 1.0;
    DualCamAlign_FirstResultJudgement();
    EXPECT_NEAR(t.dTiltY_Slave, 0.9158, 5e-5);
    EXPECT_NEAR(t.dRy, 0.9158, 5e-5);
    EXPECT_NEAR(t.dTiltX_Slave, -1.664, 5e-4);
    EXPECT_NEAR(t.dRx, -1.664, 5e-4);
    EXPECT_EQ(t.dRz, 0.75);

    std::swap(t.adSideLength_Slave[ORVEX_TOP], t.adSideLength_Master[ORVEX_TOP]);
    DualCamAlign_FirstResultJudgement();
    EXPECT_LT(t.dTiltX_Master, 0.0);
    EXPECT_NEAR(t.dRx, 1.664, 5e-4) << "a longer top side of the master contributes with the other sign";
}

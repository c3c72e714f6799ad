#include "Orvex_Alignment_Stages.h"
#include "corners/stripe_centre.h"
#include "support/plane.h"

#include <gtest/gtest.h>
#include <vector>

using namespace orvex;
using support::Plane;

namespace {

// A dark line 3 px thick, rows 10 to 12, across a stripe of 8 columns.
Plane Stripe() {
    return Plane(8, 20, 200).Fill(0, 10, 7, 12, 0);
}

bool Centre(Plane& t, double* pdX, double* pdY, int x2 = 7) {
    return MeasureStripeLineCentre(t.Data(), t.nColumns, t.nRows, 0, 0, x2, 19, true, pdX, pdY, 100.0);
}

} // namespace

TEST(StripeCentre, ToleratesFiveMisses) {
    Plane t = Stripe();
    t.Fill(6, 0, 6, 19, 200).Fill(5, 10, 5, 12, 200).Fill(5, 13, 5, 15, 0); // a miss behind a line 3 px lower
    double x = 0.0, y = 0.0;
    ASSERT_TRUE(Centre(t, &x, &y));
    EXPECT_DOUBLE_EQ(y, (6 * 11.0 + 2 * 14.0) / 8) << "a miss repeats the line before it";
    EXPECT_DOUBLE_EQ(x, 3.5) << "and counts with its own column";
    t = Stripe().Fill(0, 0, 4, 19, 200).Fill(5, 0, 5, 19, 200).Fill(5, 13, 5, 15, 0);
    ASSERT_TRUE(Centre(t, &x, &y));
    EXPECT_DOUBLE_EQ(y, (6 * 14.0 + 2 * 11.0) / 8) << "the first lines take the first valid centre";
    t.Fill(5, 0, 5, 19, 200);
    EXPECT_FALSE(Centre(t, &x, &y)) << "a sixth miss";
    t.Fill(0, 0, 7, 19, 200);
    EXPECT_FALSE(Centre(t, &x, &y, 3)) << "no valid centre at all";
}

TEST(Corner, SpanBelowTenPixelsHasTheCornersOwnStatus) {
    const auto MeasureAt = [](int cx, int cy) {
        Plane t = support::UprightChart();
        Plane tBinary = t;
        for (unsigned char& ub : tBinary.aPixels)
            ub = ub < 100 ? 0 : 255;
        DualCamAlign_Initial();
        for (auto& adCorner : m_tDualCamAlignData.adFrameThreshold_Master)
            adCorner[0] = adCorner[1] = 100.0;
        std::vector<unsigned int> anStatus;
        for (const auto Measure : {DualCamAlign_NewMeasureLTPnt, DualCamAlign_NewMeasureRTPnt,
                                   DualCamAlign_NewMeasureLDPnt, DualCamAlign_NewMeasureRDPnt})
            anStatus.push_back(Measure(tBinary.Data(), t.Data(), 1728, 972, cx, cy, {239, 127}, {1489, 845},
                                       {319, 207}, {1409, 765}, 0));
        return anStatus;
    };
    using Statuses = std::vector<unsigned int>;
    EXPECT_EQ(MeasureAt(864, 486), (Statuses{0, 0, 0, 0}));
    EXPECT_EQ(m_tDualCamAlignData.afCornerPoint_Slave[ORVEX_RT][0], 1455.0f);
    EXPECT_EQ(m_tDualCamAlignData.afCornerPoint_Slave[ORVEX_RD][1], 811.0f);
    EXPECT_EQ(m_tDualCamAlignData.afCornerPoint_Master[ORVEX_RT][0], 0.0f);
    EXPECT_EQ(MeasureAt(294, 486), (Statuses{0x101001F, 0, 0x1010021, 0}));
    EXPECT_EQ(MeasureAt(1440, 486), (Statuses{0, 0x1010020, 0, 0x1010022}));
}

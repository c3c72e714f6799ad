#include "Orvex_Alignment_Stages.h"
#include "corners/corner_crossing.h"
#include "corners/dark_count_drop.h"
#include "corners/stripe_centre.h"
#include "support/plane.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace orvex;
using support::Plane;

namespace {

constexpr int nNone = -1;

// Columns of the given numbers of dark pixels.
int DropOf(const std::vector<int>& anDark, int nFrom, int nTo) {
    Plane t(static_cast<int>(anDark.size()), 60, 255);
    for (int x = 0; x < t.nColumns; ++x)
        t.Fill(x, 0, x, anDark[static_cast<std::size_t>(x)] - 1, 0);
    int nLine = nNone;
    const bool bFound = FindDarkCountDrop(t.Data(), t.nColumns, nFrom, 0, nTo, 59, false, &nLine);
    EXPECT_EQ(bFound, nLine != nNone);
    return nLine;
}

// A dark line 3 px thick, rows 10 to 12, across a stripe of 8 columns.
Plane Stripe() {
    return Plane(8, 20, 200).Fill(0, 10, 7, 12, 0);
}

bool Centre(Plane& t, double* pdX, double* pdY, int x2 = 7) {
    return MeasureStripeLineCentre(t.Data(), t.nColumns, t.nRows, 0, 0, x2, 19, true, pdX, pdY, 100.0);
}

} // namespace

TEST(DarkCountDrop, FindsTheFirstLastingDrop) {
    const struct {
        const char* szCase;
        std::vector<int> anDark;
        int nFrom, nTo, nLine;
    } at[] = {
        {"15 is no drop", {50, 50, 35, 35, 35, 35, 35, 35}, 0, 7, nNone},
        {"16 is one", {50, 50, 34, 34, 34, 34, 34, 34}, 0, 7, 2},
        {"split over two lines of 15", {50, 35, 20, 20, 20, 20, 20}, 0, 6, nNone},
        {"to the left", {10, 10, 10, 10, 10, 10, 50, 50}, 7, 0, 5},
        {"withdrawn on recovery", {50, 30, 40, 40, 40, 20, 20, 20}, 0, 7, 5},
        {"in the last line", {50, 50, 50, 10}, 0, 3, 3},
        // Twice two confirmations, then the first confirming line stops the scan before the recovery.
        {"budget carried over", {50, 10, 10, 10, 50, 10, 10, 10, 50, 10, 10, 50}, 0, 11, 9},
        {"one line range", {50, 10}, 1, 1, nNone},
    };
    for (const auto& t : at)
        EXPECT_EQ(DropOf(t.anDark, t.nFrom, t.nTo), t.nLine) << t.szCase;
}

TEST(StripeCentre, MeansTheDarkRunOfItsLines) {
    Plane t = Stripe();
    double x = 0.0, y = 0.0;
    ASSERT_TRUE(Centre(t, &x, &y));
    EXPECT_DOUBLE_EQ(x, 3.5);
    EXPECT_DOUBLE_EQ(y, 11.0);
    t.Fill(0, 11, 7, 12, 200).Fill(0, 9, 7, 9, 100); // 100 is dark, and its outer edge lies at the pixel
    ASSERT_TRUE(Centre(t, &x, &y));
    EXPECT_DOUBLE_EQ(y, (9 + 10.5) * 0.5);
    Plane tAcross = Plane(20, 8, 200).Fill(10, 0, 12, 7, 0);
    ASSERT_TRUE(MeasureStripeLineCentre(tAcross.Data(), 20, 8, 0, 2, 19, 5, false, &x, &y, 100.0));
    EXPECT_DOUBLE_EQ(x, 11.0);
    EXPECT_DOUBLE_EQ(y, 3.5);
}

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

TEST(StripeCentre, RefusesEmptyOutsideAndNegative) {
    Plane t = Stripe();
    constexpr double dUnset = -7.0;
    double x = dUnset, y = dUnset;
    EXPECT_FALSE(MeasureStripeLineCentre(t.Data(), 8, 20, 5, 0, 4, 19, true, &x, &y, 100.0));
    EXPECT_FALSE(MeasureStripeLineCentre(t.Data(), 8, 20, 0, 0, 8, 19, true, &x, &y, 100.0));
    // A run that begins inside the dark: its neighbour is barely brighter, and the edge flies out of the
    // picture.
    Plane tDark = Plane(8, 20, 200).Fill(0, 1, 7, 3, 0).Fill(0, 0, 7, 0, 1);
    EXPECT_FALSE(MeasureStripeLineCentre(tDark.Data(), 8, 20, 0, 1, 7, 19, true, &x, &y, 100.0));
    Plane tLeft = Plane(20, 8, 200).Fill(1, 0, 3, 7, 0).Fill(0, 0, 0, 7, 1);
    EXPECT_FALSE(MeasureStripeLineCentre(tLeft.Data(), 20, 8, 1, 0, 19, 7, false, &x, &y, 100.0));
    EXPECT_EQ(x, dUnset);
}

TEST(CrossSides, CrossesFallsBackAndTakesAVerticalSide) {
    SidePoints tHorizontal, tVertical, tPoint;
    for (int i = 0; i < nFitPoints; ++i) {
        tHorizontal.adX[i] = 100.0 + 50 * i;
        tHorizontal.adY[i] = 80.0 + 0.02 * tHorizontal.adX[i];
        tVertical.adY[i] = 100.0 + 30 * i;
        tVertical.adX[i] = 60.0;
        tPoint.adX[i] = tPoint.adY[i] = 5.0;
    }
    const std::optional<CornerPosition> oVertical = CrossSides(tHorizontal, tVertical);
    ASSERT_TRUE(oVertical);
    EXPECT_NEAR(oVertical->dX, 60.0, 1e-9);
    EXPECT_NEAR(oVertical->dY, 81.2, 1e-9);
    for (int i = 0; i < nFitPoints; ++i)
        tVertical.adX[i] -= 0.02 * (tVertical.adY[i] - 81.2);
    const std::optional<CornerPosition> oLeaning = CrossSides(tHorizontal, tVertical);
    ASSERT_TRUE(oLeaning);
    EXPECT_NEAR(oLeaning->dX, 60.0, 1e-9);
    EXPECT_NEAR(oLeaning->dY, 81.2, 1e-9);
    const std::optional<CornerPosition> oFallback = CrossSides(tHorizontal, tPoint);
    ASSERT_TRUE(oFallback);
    EXPECT_EQ(oFallback->dX, 0.0);
    EXPECT_NEAR(oFallback->dY, 80.0, 1e-9);
    EXPECT_FALSE(CrossSides(tPoint, tVertical));
    double dSlope = 7.0;
    EXPECT_TRUE(FitLineXonY(tPoint.adX, tHorizontal.adX, &dSlope, nullptr));
    EXPECT_TRUE(std::isinf(dSlope)) << "an exactly vertical line";
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

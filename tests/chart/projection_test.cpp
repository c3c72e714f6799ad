#include "chart/projection.h"
#include "chart/rotation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace chart {
namespace {

double Tan(double dDegrees) {
    return std::tan(dDegrees * std::numbers::pi / 180);
}

double Distance(const Point& a, const Point& b) {
    return std::hypot(a.dX - b.dX, a.dY - b.dY);
}

void ExpectAt(const Point& t, double dX, double dY) {
    EXPECT_NEAR(t.dX, dX, 1e-9);
    EXPECT_NEAR(t.dY, dY, 1e-9);
}

TEST(Rotation, SineAndCosineAreRightToDoubleRounding) {
    for (double d = -90; d <= 90; d += 0.37) {
        const auto [dSin, dCos] = SinCosOfDegrees(d);
        EXPECT_NEAR(dSin, std::sin(d * std::numbers::pi / 180), 4e-16) << d;
        EXPECT_NEAR(dCos, std::cos(d * std::numbers::pi / 180), 4e-16) << d;
    }
}

TEST(Projection, UprightChartLiesAroundThePrincipalPoint) {
    constexpr double dHalfWidthPx = 1900 * 186.75 / 600;
    constexpr double dHalfHeightPx = 1900 * 102.75 / 600;
    const Truth tMaster = Project({}, DefaultMaster(), {});
    ExpectAt(tMaster.tCentre, 863.5, 485.5);
    ExpectAt(tMaster.aCorners[kLeftTop], 863.5 - dHalfWidthPx, 485.5 - dHalfHeightPx);
    ExpectAt(tMaster.aCorners[kLeftDown], 863.5 - dHalfWidthPx, 485.5 + dHalfHeightPx);
    ExpectAt(tMaster.aCorners[kRightTop], 863.5 + dHalfWidthPx, 485.5 - dHalfHeightPx);
    ExpectAt(tMaster.aCorners[kRightDown], 863.5 + dHalfWidthPx, 485.5 + dHalfHeightPx);
    ExpectAt(Project({}, DefaultSlave(), {}).tCentre, 863.5, 461.283);
}

TEST(Projection, ScaledCameraSeesTheSameScene) {
    const Truth tTruth = Project({}, ScaledTo(DefaultSlave(), 864, 600), {});
    ExpectAt(tTruth.tCentre, 431.5, 299.5 - 24.217 / 2);
    EXPECT_NEAR(tTruth.aCorners[kRightTop].dX - tTruth.tCentre.dX, 950 * 186.75 / 600, 1e-9);
}

// Depth at either end of a side sets how long it looks; only one angle at a time moves the depths of a pair.
TEST(Projection, TiltShortensTheFarSideByTheDepthRatio) {
    for (const double d : {-30.0, -2.0, 2.0, 30.0}) {
        const auto a = Project({}, DefaultMaster(), {d, 0, 0}).aCorners;
        const double dTopToBottom =
            Distance(a[kLeftTop], a[kRightTop]) / Distance(a[kLeftDown], a[kRightDown]);
        EXPECT_NEAR(dTopToBottom, (600 - 102.75 * Tan(d)) / (600 + 102.75 * Tan(d)), 1e-12) << d;
        EXPECT_EQ(dTopToBottom<1, d> 0);
    }
}

TEST(Projection, TurnLengthensTheNearSideByTheDepthRatio) {
    for (const double d : {-30.0, -2.0, 2.0, 30.0}) {
        const auto a = Project({}, DefaultMaster(), {0, d, 0}).aCorners;
        const double dLeftToRight =
            Distance(a[kLeftTop], a[kLeftDown]) / Distance(a[kRightTop], a[kRightDown]);
        EXPECT_NEAR(dLeftToRight, (600 + 186.75 * Tan(d)) / (600 - 186.75 * Tan(d)), 1e-12) << d;
        EXPECT_EQ(dLeftToRight > 1, d > 0);
    }
}

TEST(Projection, SlopeOfTheHorizontalBarIsTheRollAloneWhateverTheTilts) {
    for (const Pose& tPose : {Pose{0, 0, 3}, Pose{20, -25, 3}, Pose{-30, 30, -30}, Pose{5, 4, 0}}) {
        const Point tLeft = ProjectPoint({}, DefaultMaster(), tPose, {-105, 0});
        const Point tRight = ProjectPoint({}, DefaultMaster(), tPose, {105, 0});
        EXPECT_NEAR((tLeft.dY - tRight.dY) / (tRight.dX - tLeft.dX), Tan(tPose.dRz), 1e-12);
    }
}

} // namespace
} // namespace chart

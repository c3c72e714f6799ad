#include "chart/projection.h"
#include "chart/rotation.h"
#include "chart/scene.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace chart {
namespace {

constexpr int kWindow = 5; // px to either side of an edge: stays within the frame's line of some 12 px

// An edge of the frame's line where the ink begins, from the left or from above.
struct Edge {
    bool bVertical;
    double dPosition;
};

float GreyAt(const Plane& tPlane, int x, int y) {
    return tPlane.aGrey.at(static_cast<std::size_t>(y * tPlane.nWidth + x));
}

// Where the camera sees a point of the edge: x across the edge, y along it.
Point Seen(const Edge& tEdge, const Pose& tPose, double dAlong) {
    const Point tOnChart = tEdge.bVertical ? Point{tEdge.dPosition, dAlong} : Point{dAlong, tEdge.dPosition};
    const Point t = ProjectPoint({}, DefaultMaster(), tPose, tOnChart);
    return tEdge.bVertical ? t : Point{t.dY, t.dX};
}

// Where the picture has the edge in a row or column: the window's ink tells how far it is from the inked end.
double RenderedCrossing(const Plane& tPlane, const Edge& tEdge, int nNear, int nLine) {
    double dInk = 0;
    for (int n = nNear - kWindow; n <= nNear + kWindow; ++n)
        dInk += (200 - (tEdge.bVertical ? GreyAt(tPlane, n, nLine) : GreyAt(tPlane, nLine, n))) / 160.0;
    return nNear + kWindow + 0.5 - dInk;
}

TEST(Rotation, SineAndCosineAreRightToDoubleRounding) {
    for (double d = -90; d <= 90; d += 0.37) {
        const auto [dSin, dCos] = SinCosOfDegrees(d);
        EXPECT_NEAR(dSin, std::sin(d * std::numbers::pi / 180), 4e-16) << d;
        EXPECT_NEAR(dCos, std::cos(d * std::numbers::pi / 180), 4e-16) << d;
    }
}

TEST(Scene, EdgesLieWhereTheyProjectAtAnySlope) {
    const Edge aEdges[] = {{true, -188.75}, {true, 184.75}, {false, -104.75}, {false, 100.75}};
    for (const Pose& tPose : {Pose{}, Pose{2, -3, 3.18}, Pose{-1, 2, -8.27}, Pose{1, 1, 20.9}}) {
        const Plane tPlane = RenderScene({}, DefaultMaster(), tPose);
        for (const Edge& tEdge : aEdges) {
            const Point tNear = Seen(tEdge, tPose, 0), tFar = Seen(tEdge, tPose, 50);
            const double dSlope = (tFar.dX - tNear.dX) / (tFar.dY - tNear.dY);
            for (int nLine = static_cast<int>(tNear.dY) - 40; nLine <= tNear.dY + 40; ++nLine) {
                const double dTrue = tNear.dX + dSlope * (nLine - tNear.dY);
                const double dRendered = RenderedCrossing(tPlane, tEdge, static_cast<int>(dTrue), nLine);
                ASSERT_NEAR(dRendered, dTrue, 1e-4) << tEdge.dPosition << " rz " << tPose.dRz;
            }
        }
    }
}

// Four fine pixels tile one coarse pixel, so their mean is its grey: corners and ends of bars included.
TEST(Scene, CoarsePixelIsTheMeanOfItsFineOnes) {
    const Camera tCamera = ScaledTo(DefaultSlave(), 107, 61);
    for (const Pose& tPose : {Pose{}, Pose{1, 2, 3}, Pose{-8, 11, 17}, Pose{0, 30, -30}}) {
        const Plane tCoarse = RenderScene({}, tCamera, tPose);
        const Plane tFine = RenderScene({}, ScaledTo(tCamera, 214, 122), tPose);
        for (int y = 0; y < 61; ++y)
            for (int x = 0; x < 107; ++x) {
                const float fUpper = GreyAt(tFine, 2 * x, 2 * y) + GreyAt(tFine, 2 * x + 1, 2 * y);
                const float fLower = GreyAt(tFine, 2 * x, 2 * y + 1) + GreyAt(tFine, 2 * x + 1, 2 * y + 1);
                ASSERT_NEAR(4 * GreyAt(tCoarse, x, y), fUpper + fLower, 1e-3) << x << ' ' << y;
            }
    }
}

} // namespace
} // namespace chart

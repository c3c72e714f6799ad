#include "chart/projection.h"
#include "chart/scene.h"

#include <gtest/gtest.h>

#include <cmath>

namespace chart {
namespace {

constexpr int kWindow = 5; // px to either side of an edge: stays within the frame's line of some 12 px

// An edge of the frame's line: where it runs on the chart, and whether the ink lies beyond it (+1: at larger
// coordinates) or before it (-1).
struct Edge {
    bool bVertical;
    double dPosition;
    int nInkSide;
};

Point OnEdge(const Edge& tEdge, double dAlong) {
    return tEdge.bVertical ? Point{tEdge.dPosition, dAlong} : Point{dAlong, tEdge.dPosition};
}

float GreyAt(const Plane& tPlane, int x, int y) {
    return tPlane.aGrey.at(static_cast<std::size_t>(y * tPlane.nWidth + x));
}

// Position of the edge across a picture row (vertical edges) or column, from two points of its straight
// image.
double TrueCrossing(const Edge& tEdge, const Pose& tPose, int nLine) {
    const Point a = ProjectPoint({}, DefaultMaster(), tPose, OnEdge(tEdge, -50));
    const Point b = ProjectPoint({}, DefaultMaster(), tPose, OnEdge(tEdge, 50));
    return tEdge.bVertical ? a.dX + (b.dX - a.dX) * (nLine - a.dY) / (b.dY - a.dY)
                           : a.dY + (b.dY - a.dY) * (nLine - a.dX) / (b.dX - a.dX);
}

// The same from the picture: the ink between the window's ends tells how far the edge is from the inked end.
double RenderedCrossing(const Plane& tPlane, const Edge& tEdge, int nNear, int nLine) {
    double dInk = 0;
    for (int n = nNear - kWindow; n <= nNear + kWindow; ++n)
        dInk += (200 - GreyAt(tPlane, tEdge.bVertical ? n : nLine, tEdge.bVertical ? nLine : n)) / 160.0;
    return nNear + tEdge.nInkSide * (kWindow + 0.5 - dInk);
}

TEST(Scene, EdgesLieWhereTheyProjectAtAnySlope) {
    const Edge aEdges[] = {{true, -188.75, 1}, {true, -184.75, -1}, {true, 184.75, 1},
                           {true, 188.75, -1}, {false, -104.75, 1}, {false, -100.75, -1},
                           {false, 100.75, 1}, {false, 104.75, -1}};
    for (const Pose& tPose :
         {Pose{}, Pose{0.3, -0.4, 0.7}, Pose{2, -3, 3.18}, Pose{-1, 2, -8.27}, Pose{1, 1, 20.9}}) {
        const Plane tPlane = RenderScene({}, DefaultMaster(), tPose);
        for (const Edge& tEdge : aEdges) {
            const Point tMiddle = ProjectPoint({}, DefaultMaster(), tPose, OnEdge(tEdge, 0));
            const auto nMiddle = static_cast<int>(tEdge.bVertical ? tMiddle.dY : tMiddle.dX);
            for (int nLine = nMiddle - 40; nLine <= nMiddle + 40; ++nLine) {
                const double dTrue = TrueCrossing(tEdge, tPose, nLine);
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
            for (int x = 0; x < 107; ++x)
                ASSERT_NEAR(4 * GreyAt(tCoarse, x, y),
                            GreyAt(tFine, 2 * x, 2 * y) + GreyAt(tFine, 2 * x + 1, 2 * y) +
                                GreyAt(tFine, 2 * x, 2 * y + 1) + GreyAt(tFine, 2 * x + 1, 2 * y + 1),
                            1e-3)
                    << x << ' ' << y;
    }
}

} // namespace
} // namespace chart

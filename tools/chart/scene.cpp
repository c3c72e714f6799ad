#include "chart/scene.h"

#include "chart/coverage.h"
#include "chart/ink.h"
#include "chart/rotation.h"

#include <algorithm>

namespace chart {

namespace {

// A pixel's line of sight meets the chart plane at (x / depth, y / depth). Kept undivided all three are
// linear in the picture, so an edge of the chart is a straight line through a pixel and can be cut exactly.
struct Sight {
    Linear tX;
    Linear tY;
    Linear tDepth;
};

double Magnitude(double d) {
    return std::max(d, -d);
}

// The most a linear quantity changes between a pixel's centre and its border.
double Reach(const Linear& tLinear) {
    return (Magnitude(tLinear.dPerX) + Magnitude(tLinear.dPerY)) / 2;
}

Linear Moved(const Linear& tLinear, double dX, double dY) {
    return {tLinear.dValue + tLinear.dPerX * dX + tLinear.dPerY * dY, tLinear.dPerX, tLinear.dPerY};
}

// The sight through pixel (0, 0).
Sight FirstSight(const Chart& tChart, const Camera& tCamera, const Pose& tPose) {
    const Matrix3 a = ChartToCamera(tPose);
    // The inverse of a rotation is its transpose: a column per chart axis.
    const auto along = [&](std::size_t nAxis, double dScale) {
        const Linear tAtPrincipal{dScale * a[2][nAxis] * tCamera.dFocal, dScale * a[0][nAxis],
                                  dScale * a[1][nAxis]};
        return Moved(tAtPrincipal, -tCamera.dPrincipalX, -tCamera.dPrincipalY);
    };
    return {along(0, tChart.dDistance), along(1, tChart.dDistance), along(2, 1.0)};
}

// A patch with the margins, constant over the picture, within which a pixel may meet its border.
struct Target {
    InkPatch tPatch;
    double dMarginX;
    double dMarginY;
};

std::vector<Target> Targets(const Chart& tChart, const Sight& tSight) {
    std::vector<Target> aTargets;
    for (const InkPatch& tPatch : InkPatches(InkOf(tChart)))
        aTargets.push_back({tPatch, Reach(tSight.tX) + tPatch.dHalfX * Reach(tSight.tDepth),
                            Reach(tSight.tY) + tPatch.dHalfY * Reach(tSight.tDepth)});
    return aTargets;
}

// dSide * a - dHalf * depth: at most 0 on the patch's side of one of its edges.
Linear Beyond(const Linear& a, double dSide, const Linear& tDepth, double dHalf) {
    return {dSide * a.dValue - dHalf * tDepth.dValue, dSide * a.dPerX - dHalf * tDepth.dPerX,
            dSide * a.dPerY - dHalf * tDepth.dPerY};
}

double CutCoverage(const InkPatch& tPatch, const Sight& tSight) {
    // Opposite edges together also demand depth >= 0: what lies behind the camera is never seen.
    return AreaBelowZero({Beyond(tSight.tX, 1, tSight.tDepth, tPatch.dHalfX),
                          Beyond(tSight.tX, -1, tSight.tDepth, tPatch.dHalfX),
                          Beyond(tSight.tY, 1, tSight.tDepth, tPatch.dHalfY),
                          Beyond(tSight.tY, -1, tSight.tDepth, tPatch.dHalfY)});
}

double Coverage(const Target& tTarget, const Sight& tSight) {
    const InkPatch& tPatch = tTarget.tPatch;
    const double dX = Magnitude(tSight.tX.dValue) - tPatch.dHalfX * tSight.tDepth.dValue;
    const double dY = Magnitude(tSight.tY.dValue) - tPatch.dHalfY * tSight.tDepth.dValue;
    if (dX >= tTarget.dMarginX || dY >= tTarget.dMarginY)
        return 0.0;
    if (dX <= -tTarget.dMarginX && dY <= -tTarget.dMarginY)
        return 1.0;
    return CutCoverage(tPatch, tSight);
}

double InkShare(const std::vector<Target>& aTargets, const Sight& tSight) {
    double dShare = 0.0;
    for (const Target& tTarget : aTargets)
        dShare += tTarget.tPatch.nWeight * Coverage(tTarget, tSight);
    return dShare;
}

} // namespace

Plane RenderScene(const Chart& tChart, const Camera& tCamera, const Pose& tPose) {
    if (tCamera.nWidth < 1 || tCamera.nHeight < 1)
        return {};
    Plane tPlane{tCamera.nWidth, tCamera.nHeight, {}};
    tPlane.aGrey.reserve(static_cast<std::size_t>(tPlane.nWidth) * static_cast<std::size_t>(tPlane.nHeight));
    const Sight tFirst = FirstSight(tChart, tCamera, tPose);
    const std::vector<Target> aTargets = Targets(tChart, tFirst);
    for (int y = 0; y < tPlane.nHeight; ++y)
        for (int x = 0; x < tPlane.nWidth; ++x) {
            const Sight tSight{Moved(tFirst.tX, x, y), Moved(tFirst.tY, x, y), Moved(tFirst.tDepth, x, y)};
            const double dInk = InkShare(aTargets, tSight);
            tPlane.aGrey.push_back(static_cast<float>(tChart.dPaper + (tChart.dInk - tChart.dPaper) * dInk));
        }
    return tPlane;
}

} // namespace chart

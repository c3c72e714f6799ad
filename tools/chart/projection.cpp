#include "chart/projection.h"

#include "chart/rotation.h"

namespace chart {

namespace {

double Row(const Matrix3& a, std::size_t nRow, const Point& tOnChart, double dDistance) {
    return a[nRow][0] * tOnChart.dX + a[nRow][1] * tOnChart.dY + a[nRow][2] * dDistance;
}

} // namespace

Point ProjectPoint(const Chart& tChart, const Camera& tCamera, const Pose& tPose, const Point& tOnChart) {
    const Matrix3 a = ChartToCamera(tPose);
    const double dDepth = Row(a, 2, tOnChart, tChart.dDistance);
    return {tCamera.dPrincipalX + tCamera.dFocal * Row(a, 0, tOnChart, tChart.dDistance) / dDepth,
            tCamera.dPrincipalY + tCamera.dFocal * Row(a, 1, tOnChart, tChart.dDistance) / dDepth};
}

Truth Project(const Chart& tChart, const Camera& tCamera, const Pose& tPose) {
    const auto at = [&](double dSignX, double dSignY) {
        return ProjectPoint(tChart, tCamera, tPose,
                            {dSignX * tChart.dFrameHalfWidth, dSignY * tChart.dFrameHalfHeight});
    };
    return {at(0, 0), {at(-1, -1), at(1, -1), at(-1, 1), at(1, 1)}, tPose};
}

} // namespace chart

#include "measuring/stage_views.h"

#include "Orvex_Alignment_Stages.h"
#include "measuring/frame_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tools {
namespace {

// Buffers as the stages take them; they leave the picture as it is.
struct Planes {
    std::vector<unsigned char> aGrey, aBinary;
    explicit Planes(const Picture& t)
        : aGrey(t.strGrey.begin(), t.strGrey.end()), aBinary(t.strGrey.size()) {}
};

struct SearchRatios {
    double dWidth, dHeight;
};

SearchRatios RatiosOf(Camera tCamera) {
    const DualCamAlignParam& t = m_tDualCamAlignParam;
    return tCamera == Camera::kMaster ? SearchRatios{t.dSearchWidthRatio_Master, t.dSearchHeightRatio_Master}
                                      : SearchRatios{t.dSearchWidthRatio_Slave, t.dSearchHeightRatio_Slave};
}

// The first pass's centre of the cross, whole pixels: the stages hand it on from pass to pass and from the
// master to the slave.
using CoarseCentre = std::array<unsigned short, 2>;

// Whether the first pass finds the cross; it then moves the centre there.
bool FindCoarseCentre(const Picture& tPicture, Camera tCamera, Planes& tPlanes, CoarseCentre& auwCentre) {
    const DualCamAlignParam& t = m_tDualCamAlignParam;
    const bool bMaster = tCamera == Camera::kMaster;
    const SearchRatios tRatios = RatiosOf(tCamera);
    return DualCamAlign_BinaryImage(tPlanes.aGrey.data(), tPicture.nColumns, tPicture.nRows,
                                    bMaster ? t.dBinaryRatio_Master : t.dBinaryRatio_Slave, nullptr,
                                    tPlanes.aBinary.data(), tRatios.dWidth, tRatios.dHeight, bMaster,
                                    auwCentre.data(), false) != 0 &&
           DualCamAlign_CalculateIntersectionAndAngle(
               tPlanes.aBinary.data(), tPlanes.aGrey.data(), tPicture.nColumns, tPicture.nRows, nullptr,
               nullptr, nullptr, nullptr, nullptr, nullptr, tRatios.dWidth, tRatios.dHeight, bMaster,
               auwCentre.data(), false) == ORVEX_OK;
}

// Where the first pass looks: the picture's centre, the slave's moved by the shift of its chart.
Point FirstCentre(const Picture& tPicture, Camera tCamera) {
    const DualCamAlignParam& t = m_tDualCamAlignParam;
    const double dShift = tCamera == Camera::kSlave && t.bUseSlaveShift != 0 ? std::trunc(t.fSlaveShift) : 0;
    return {tPicture.nColumns / 2.0 + (t.bShiftAlongY != 0 ? 0 : dShift),
            tPicture.nRows / 2.0 + (t.bShiftAlongY != 0 ? dShift : 0)};
}

Rectangle WindowAround(Point tCentre, const Picture& tPicture, Camera tCamera) {
    const SearchRatios tRatios = RatiosOf(tCamera);
    const double dHalfWidth = 0.5 * tPicture.nColumns * tRatios.dWidth;
    const double dHalfHeight = 0.5 * tPicture.nRows * tRatios.dHeight;
    // The stage looks at whole pixels of the picture.
    return {std::trunc(std::max(tCentre.dX - dHalfWidth, 0.0)),
            std::trunc(std::max(tCentre.dY - dHalfHeight, 0.0)),
            std::trunc(std::min(tCentre.dX + dHalfWidth, tPicture.nColumns - 1.0)),
            std::trunc(std::min(tCentre.dY + dHalfHeight, tPicture.nRows - 1.0))};
}

Rectangle RectangleOf(_POINTPOSITION ptLT, _POINTPOSITION ptRD) {
    return {static_cast<double>(ptLT.x), static_cast<double>(ptLT.y), static_cast<double>(ptRD.x),
            static_cast<double>(ptRD.y)};
}

// The margin lies on both sides of the edges that were met; the picture's border may cut the outer one.
Rectangle EdgeBetween(const Rectangle& tOuter, const Rectangle& tInner, const Picture& tPicture,
                      double dMargin) {
    const auto Edge = [](double dOuter, double dInner, double dBorder, double dInnerMargin) {
        return dOuter == dBorder ? dInner - dInnerMargin : std::midpoint(dOuter, dInner);
    };
    return {Edge(tOuter.dLeft, tInner.dLeft, 0, dMargin), Edge(tOuter.dTop, tInner.dTop, 0, dMargin),
            Edge(tOuter.dRight, tInner.dRight, tPicture.nColumns - 1.0, -dMargin),
            Edge(tOuter.dBottom, tInner.dBottom, tPicture.nRows - 1.0, -dMargin)};
}

void LocateFrame(const Picture& tPicture, Camera tCamera, Point tCentre, Planes& tPlanes, StageView& t) {
    const FrameSearch tSearch = FrameSearchOf(tCamera);
    t.oFrameStart = {tCentre.dX - tSearch.nOffsetX, tCentre.dY - tSearch.nOffsetY,
                     tCentre.dX + tSearch.nOffsetX, tCentre.dY + tSearch.nOffsetY};
    _POINTPOSITION ptOuterLT = {}, ptOuterRD = {}, ptInnerLT = {}, ptInnerRD = {};
    if (DualCamAlign_CalImageFrame(tPlanes.aGrey.data(), static_cast<unsigned int>(tPicture.nColumns),
                                   static_cast<unsigned int>(tPicture.nRows), static_cast<int>(tCentre.dX),
                                   static_cast<int>(tCentre.dY), &ptOuterLT, &ptOuterRD, &ptInnerLT,
                                   &ptInnerRD, tCamera == Camera::kMaster ? 1 : 0) != ORVEX_OK)
        return;
    t.oOuterFrame = RectangleOf(ptOuterLT, ptOuterRD);
    t.oInnerFrame = RectangleOf(ptInnerLT, ptInnerRD);
    t.oFrameEdge = EdgeBetween(*t.oOuterFrame, *t.oInnerFrame, tPicture, tSearch.nMargin);
}

// The centre as a pixel of the picture; a cross may be measured beyond it.
bool IsInside(const Picture& tPicture, Point t) {
    return t.dX >= 0 && t.dY >= 0 && t.dX < tPicture.nColumns && t.dY < tPicture.nRows;
}

StageView ViewOf(const Picture& tPicture, Camera tCamera, const Measurement& tMeasurement,
                 CoarseCentre& auwCentre) {
    StageView t;
    if (!WasBegun(tCamera, tMeasurement))
        return t;
    Planes tPlanes(tPicture);
    const Point tCentre = FindCoarseCentre(tPicture, tCamera, tPlanes, auwCentre)
                              ? Point{1.0 * auwCentre[0], 1.0 * auwCentre[1]}
                              : FirstCentre(tPicture, tCamera);
    t.oFirstWindow = WindowAround(FirstCentre(tPicture, tCamera), tPicture, tCamera);
    t.oSearchWindow = WindowAround(tCentre, tPicture, tCamera);
    t.oCrossThreshold = tCamera == Camera::kMaster ? m_tDualCamAlignData.dBinaryThreshold_Master
                                                   : m_tDualCamAlignData.dBinaryThreshold_Slave;
    const CameraMeasurement& tMeasured =
        tCamera == Camera::kMaster ? tMeasurement.tMaster : tMeasurement.tSlave;
    if (tMeasured.oCentre && IsInside(tPicture, *tMeasured.oCentre))
        LocateFrame(tPicture, tCamera, *tMeasured.oCentre, tPlanes, t);
    return t;
}

} // namespace

StageViews ViewsOf(const Picture& tMaster, const Picture& tSlave, const Measurement& tMeasurement) {
    CoarseCentre auwCentre = {};
    StageViews t;
    t.tMaster = ViewOf(tMaster, Camera::kMaster, tMeasurement, auwCentre);
    t.tSlave = ViewOf(tSlave, Camera::kSlave, tMeasurement, auwCentre);
    return t;
}

} // namespace tools

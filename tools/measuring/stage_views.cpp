#include "measuring/stage_views.h"

#include "measuring/parameters.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

namespace tools {
namespace {

// One camera's picture, with the buffers and parameters as the stages take them.
struct StageInput {
    Camera tCamera;
    const Picture& tPicture;
    unsigned char* pGrey;
    std::unique_ptr<unsigned char[]> pBinary;
    double dBinaryRatio, dWidthRatio, dHeightRatio;
    FrameSearch tFrameSearch;

    StageInput(Camera tOf, const Picture& picture, const DualCamAlignParam& tParameters)
        : tCamera(tOf), tPicture(picture), pGrey(LentToStages(picture)),
          pBinary(std::make_unique_for_overwrite<unsigned char[]>(picture.aGrey.size())),
          dBinaryRatio(IsMaster() ? tParameters.dBinaryRatio_Master : tParameters.dBinaryRatio_Slave),
          dWidthRatio(IsMaster() ? tParameters.dSearchWidthRatio_Master
                                 : tParameters.dSearchWidthRatio_Slave),
          dHeightRatio(IsMaster() ? tParameters.dSearchHeightRatio_Master
                                  : tParameters.dSearchHeightRatio_Slave),
          tFrameSearch(FrameSearchOf(tOf, tParameters)) {}

    bool IsMaster() const { return tCamera == Camera::kMaster; }
};

// The first pass's centre of the cross, whole pixels: the stages hand it on from pass to pass and from the
// master to the slave.
using CoarseCentre = std::array<unsigned short, 2>;

struct FirstPass {
    std::optional<double> oThreshold; // none if the window could not be binarised
    bool bCentreFound;                // the coarse centre is then there
};

FirstPass RunFirstPass(StageInput& tInput, CoarseCentre& auwCentre) {
    const int nColumns = tInput.tPicture.nColumns, nRows = tInput.tPicture.nRows;
    if (DualCamAlign_BinaryImage(tInput.pGrey, nColumns, nRows, tInput.dBinaryRatio, nullptr,
                                 tInput.pBinary.get(), tInput.dWidthRatio, tInput.dHeightRatio,
                                 tInput.IsMaster(), auwCentre.data(), false) == 0)
        return {std::nullopt, false};
    const double dThreshold = tInput.IsMaster() ? m_tDualCamAlignData.dBinaryThreshold_Master
                                                : m_tDualCamAlignData.dBinaryThreshold_Slave;
    const unsigned int nStatus = DualCamAlign_CalculateIntersectionAndAngle(
        tInput.pBinary.get(), tInput.pGrey, nColumns, nRows, nullptr, nullptr, nullptr, nullptr, nullptr,
        nullptr, tInput.dWidthRatio, tInput.dHeightRatio, tInput.IsMaster(), auwCentre.data(), false);
    return {dThreshold, nStatus == ORVEX_OK};
}

// Where the first pass looks: the picture's centre, the slave's moved by the shift of its chart.
Point FirstCentre(const StageInput& tInput, const DualCamAlignParam& tParameters) {
    const bool bShifted = !tInput.IsMaster() && tParameters.bUseSlaveShift != 0;
    const double dShift = bShifted ? std::trunc(tParameters.fSlaveShift) : 0;
    const bool bAlongY = tParameters.bShiftAlongY != 0;
    return {tInput.tPicture.nColumns / 2.0 + (bAlongY ? 0 : dShift),
            tInput.tPicture.nRows / 2.0 + (bAlongY ? dShift : 0)};
}

// The stage looks at whole pixels of the picture.
Rectangle WindowAround(Point tCentre, const StageInput& tInput) {
    const Picture& tPicture = tInput.tPicture;
    const double dHalfWidth = 0.5 * tPicture.nColumns * tInput.dWidthRatio;
    const double dHalfHeight = 0.5 * tPicture.nRows * tInput.dHeightRatio;
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

void LocateFrame(Point tCentre, StageInput& tInput, StageView& tView) {
    const FrameSearch& tSearch = tInput.tFrameSearch;
    tView.oFrameStart = {tCentre.dX - tSearch.nOffsetX, tCentre.dY - tSearch.nOffsetY,
                         tCentre.dX + tSearch.nOffsetX, tCentre.dY + tSearch.nOffsetY};
    _POINTPOSITION ptOuterLT = {}, ptOuterRD = {}, ptInnerLT = {}, ptInnerRD = {};
    if (DualCamAlign_CalImageFrame(tInput.pGrey, static_cast<unsigned int>(tInput.tPicture.nColumns),
                                   static_cast<unsigned int>(tInput.tPicture.nRows),
                                   static_cast<int>(tCentre.dX), static_cast<int>(tCentre.dY), &ptOuterLT,
                                   &ptOuterRD, &ptInnerLT, &ptInnerRD, tInput.IsMaster() ? 1 : 0) != ORVEX_OK)
        return;
    tView.oOuterFrame = RectangleOf(ptOuterLT, ptOuterRD);
    tView.oInnerFrame = RectangleOf(ptInnerLT, ptInnerRD);
    tView.oFrameEdge = EdgeBetween(*tView.oOuterFrame, *tView.oInnerFrame, tInput.tPicture, tSearch.nMargin);
}

// The centre as a pixel of the picture; a cross may be measured beyond it.
bool IsInside(const Picture& tPicture, Point tPoint) {
    return tPoint.dX >= 0 && tPoint.dY >= 0 && tPoint.dX < tPicture.nColumns && tPoint.dY < tPicture.nRows;
}

StageView ViewOf(Camera tCamera, const MeasuredPicture& tOf, const DualCamAlignParam& tParameters,
                 CoarseCentre& auwCentre) {
    StageView tView;
    if (!tOf.tMeasured.WasBegun())
        return tView;
    StageInput tInput(tCamera, tOf.tPicture, tParameters);
    const FirstPass tFirst = RunFirstPass(tInput, auwCentre);
    const Point tFirstCentre = FirstCentre(tInput, tParameters);
    tView.oFirstWindow = WindowAround(tFirstCentre, tInput);
    tView.oSearchWindow = WindowAround(
        tFirst.bCentreFound ? Point{1.0 * auwCentre[0], 1.0 * auwCentre[1]} : tFirstCentre, tInput);
    tView.oCrossThreshold = tFirst.oThreshold;
    if (tOf.tMeasured.oCentre && IsInside(tOf.tPicture, *tOf.tMeasured.oCentre))
        LocateFrame(*tOf.tMeasured.oCentre, tInput, tView);
    return tView;
}

} // namespace

unsigned char* LentToStages(const Picture& t) {
    return const_cast<unsigned char*>(t.aGrey.data()); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

StageViews ViewsOf(const MeasuredPicture& tMaster, const MeasuredPicture& tSlave,
                   const DualCamAlignParam& tParameters) {
    m_tDualCamAlignParam = tParameters; // some stages read it there
    CoarseCentre auwCentre = {};
    StageViews tViews;
    tViews.tMaster = ViewOf(Camera::kMaster, tMaster, tParameters, auwCentre);
    tViews.tSlave = ViewOf(Camera::kSlave, tSlave, tParameters, auwCentre);
    return tViews;
}

} // namespace tools

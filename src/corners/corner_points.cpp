#include "corners/corner_points.h"

#include "core/camera.h"
#include "corners/frame_side.h"

namespace orvex {
namespace {

struct Corner {
    OrvexCorner eSlot;
    bool bRight;
    bool bLower;
    unsigned int nStatus;
};

constexpr Corner tLeftTop = {ORVEX_LT, false, false, ORVEX_CORNER_LEFT_TOP};
constexpr Corner tRightTop = {ORVEX_RT, true, false, ORVEX_CORNER_RIGHT_TOP};
constexpr Corner tLeftDown = {ORVEX_LD, false, true, ORVEX_CORNER_LEFT_DOWN};
constexpr Corner tRightDown = {ORVEX_RD, true, true, ORVEX_CORNER_RIGHT_DOWN};

struct FrameRectangles {
    _POINTPOSITION ptOuterLT, ptOuterRD, ptInnerLT, ptInnerRD;
};

// The master's thresholds serve the slave's picture too, on purpose.
double SideThreshold(const Corner& tCorner, int nBand) {
    return ResultsOf(true).adFrameThreshold[tCorner.eSlot][nBand];
}

SideSearch HorizontalSide(const Corner& tCorner, const FrameRectangles& t, int nCenterX) {
    const Range tBand =
        tCorner.bLower ? Range{t.ptInnerRD.y, t.ptOuterRD.y} : Range{t.ptOuterLT.y, t.ptInnerLT.y};
    return {true,     tBand,          tCorner.bRight ? t.ptOuterRD.x : t.ptOuterLT.x,
            nCenterX, tCorner.bRight, SideThreshold(tCorner, 0)};
}

SideSearch VerticalSide(const Corner& tCorner, const FrameRectangles& t, int nCenterY) {
    const Range tBand =
        tCorner.bRight ? Range{t.ptInnerRD.x, t.ptOuterRD.x} : Range{t.ptOuterLT.x, t.ptInnerLT.x};
    return {false,    tBand,          tCorner.bLower ? t.ptOuterRD.y : t.ptOuterLT.y,
            nCenterY, tCorner.bLower, SideThreshold(tCorner, 1)};
}

unsigned int MeasureCorner(const Corner& tCorner, PlaneView tBinary, PlaneView tGrey, _POINTPOSITION ptCenter,
                           const FrameRectangles& tFrame, CornerPosition* ptPosition) {
    SidePoints tHorizontal, tVertical;
    SideResult eResult =
        MeasureSide(tBinary, tGrey, HorizontalSide(tCorner, tFrame, ptCenter.x), &tHorizontal);
    if (eResult == SideResult::Found)
        eResult = MeasureSide(tBinary, tGrey, VerticalSide(tCorner, tFrame, ptCenter.y), &tVertical);
    if (eResult == SideResult::NoStripe)
        return ORVEX_CORNER_STRIPE;
    if (eResult == SideResult::NoSide)
        return tCorner.nStatus;
    const std::optional<CornerPosition> oPosition = CrossSides(tHorizontal, tVertical);
    if (!oPosition)
        return tCorner.nStatus;
    *ptPosition = *oPosition;
    return ORVEX_OK;
}

// What every exported corner function does: checks the planes, measures, stores.
unsigned int StoreCorner(const Corner& tCorner, const unsigned char* pBinary, const unsigned char* pGray,
                         unsigned int nImageWidth, unsigned int nImageHeight, _POINTPOSITION ptCenter,
                         const FrameRectangles& tFrame, int nMaster) {
    if (!IsUsableSize(nImageWidth, nImageHeight) || pBinary == nullptr || pGray == nullptr)
        return tCorner.nStatus;
    const PictureSize tSize = {static_cast<int>(nImageWidth), static_cast<int>(nImageHeight)};
    CornerPosition t = {};
    const unsigned int nStatus =
        MeasureCorner(tCorner, {pBinary, tSize}, {pGray, tSize}, ptCenter, tFrame, &t);
    if (nStatus != ORVEX_OK)
        return nStatus;
    float* const pfCorner = ResultsOf(nMaster != 0).afCornerPoint[tCorner.eSlot];
    pfCorner[0] = static_cast<float>(t.dX);
    pfCorner[1] = static_cast<float>(t.dY);
    return ORVEX_OK;
}

} // namespace

unsigned int MeasureCornerPoints(unsigned char* pBinary, unsigned char* pGray, unsigned int nImageWidth,
                                 unsigned int nImageHeight, int nCenterX, int nCenterY,
                                 _POINTPOSITION ptOuterLT, _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT,
                                 _POINTPOSITION ptInnerRD, int nMaster) {
    for (const auto MeasurePoint : {DualCamAlign_NewMeasureLTPnt, DualCamAlign_NewMeasureRTPnt,
                                    DualCamAlign_NewMeasureLDPnt, DualCamAlign_NewMeasureRDPnt})
        if (const unsigned int nStatus =
                MeasurePoint(pBinary, pGray, nImageWidth, nImageHeight, nCenterX, nCenterY, ptOuterLT,
                             ptOuterRD, ptInnerLT, ptInnerRD, nMaster))
            return nStatus;
    return ORVEX_OK;
}

} // namespace orvex

#define DEFINE_CORNER(Function, tCorner)                                                                     \
    unsigned int Function(unsigned char* pBinary, unsigned char* pGray, unsigned int nImageWidth,            \
                          unsigned int nImageHeight, int nCenterX, int nCenterY, _POINTPOSITION ptOuterLT,   \
                          _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT, _POINTPOSITION ptInnerRD,      \
                          int nMaster) {                                                                     \
        return orvex::StoreCorner(orvex::tCorner, pBinary, pGray, nImageWidth, nImageHeight,                 \
                                  {nCenterX, nCenterY}, {ptOuterLT, ptOuterRD, ptInnerLT, ptInnerRD},        \
                                  nMaster);                                                                  \
    }

DEFINE_CORNER(DualCamAlign_NewMeasureLTPnt, tLeftTop)
DEFINE_CORNER(DualCamAlign_NewMeasureRTPnt, tRightTop)
DEFINE_CORNER(DualCamAlign_NewMeasureRDPnt, tRightDown)
DEFINE_CORNER(DualCamAlign_NewMeasureLDPnt, tLeftDown)

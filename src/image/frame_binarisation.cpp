#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "core/plane.h"
#include "core/to_integer.h"
#include "image/region_threshold.h"

using namespace orvex;

namespace {

// One piece of the ring around the frame and the slot that keeps its threshold.
struct Piece {
    Rect tRect;
    OrvexCorner eCorner;
    int nBand; // 0: top or bottom, 1: left or right
};

constexpr int nPieces = 8;

bool ThresholdOf(const unsigned char* pGray, int nStride, const Rect& t, const FrameFractions& tFractions,
                 double* pdThreshold) {
    return CalcRegionThreshold(pGray, nStride, static_cast<int>(t.tColumns.nFirst),
                               static_cast<int>(t.tRows.nFirst), static_cast<int>(t.tColumns.nLast),
                               static_cast<int>(t.tRows.nLast), tFractions.dDark, tFractions.dBright,
                               tFractions.dBlend, pdThreshold);
}

void Blacken(PlaneView tGrey, unsigned char* pBinary, const Rect& t, int nThreshold) {
    if (nThreshold < 0)
        return;
    const auto ubLastDark =
        static_cast<unsigned char>(std::min(nThreshold, 255)); // bytes compare sixteen at a time
    for (std::int64_t y = t.tRows.nFirst; y <= t.tRows.nLast; ++y) {
        const unsigned char* pGrey = tGrey.Row(y).pFirst;
        unsigned char* pRow = pBinary + y * tGrey.tSize.nWidth;
        for (std::int64_t x = t.tColumns.nFirst; x <= t.tColumns.nLast; ++x)
            pRow[x] &= pGrey[x] <= ubLastDark ? 0 : 255;
    }
}

} // namespace

int DualCamAlign_BinaryImageFrame(unsigned char* pGray, unsigned char* pBinary, unsigned int nImageWidth,
                                  unsigned int nImageHeight, int nCenterX, int nCenterY,
                                  _POINTPOSITION ptOuterLT, _POINTPOSITION ptOuterRD,
                                  _POINTPOSITION ptInnerLT, _POINTPOSITION ptInnerRD, int nMaster) {
    if (!IsUsableSize(nImageWidth, nImageHeight) || pGray == nullptr || pBinary == nullptr)
        return ORVEX_FRAME_THRESHOLD;
    const PictureSize tSize = {static_cast<int>(nImageWidth), static_cast<int>(nImageHeight)};
    const std::int64_t cx = nCenterX, cy = nCenterY;
    const Range tTop = {ptOuterLT.y, ptInnerLT.y}, tBottom = {ptInnerRD.y, ptOuterRD.y};
    const Range tLeft = {ptOuterLT.x, ptInnerLT.x}, tRight = {ptInnerRD.x, ptOuterRD.x};
    // The top and bottom bands span the whole width; the side bands take the rows between them.
    const Range tLeftHalf = {ptOuterLT.x, cx - 1}, tRightHalf = {cx, ptOuterRD.x};
    const Range tUpperHalf = {tTop.nLast + 1, cy - 1}, tLowerHalf = {cy, tBottom.nFirst - 1};
    const Piece at[nPieces] = {{{tLeftHalf, tTop}, ORVEX_LT, 0},    {{tRightHalf, tTop}, ORVEX_RT, 0},
                               {{tLeftHalf, tBottom}, ORVEX_LD, 0}, {{tRightHalf, tBottom}, ORVEX_RD, 0},
                               {{tLeft, tUpperHalf}, ORVEX_LT, 1},  {{tLeft, tLowerHalf}, ORVEX_LD, 1},
                               {{tRight, tUpperHalf}, ORVEX_RT, 1}, {{tRight, tLowerHalf}, ORVEX_RD, 1}};

    const CameraParameters tCamera = ParametersOf(nMaster == 1);
    const CameraResults tResults = ResultsOf(nMaster == 1);
    for (const Piece& t : at) {
        double dThreshold = 0.0;
        const FrameFractions& tFractions = t.nBand == 0 ? tCamera.tTopBottom : tCamera.tLeftRight;
        // The frame location keeps every piece inside the picture; another caller may not.
        if (t.tRect.IsEmpty() || !tSize.Bounds().Contains(t.tRect) ||
            !ThresholdOf(pGray, tSize.nWidth, t.tRect, tFractions, &dThreshold))
            return ORVEX_FRAME_THRESHOLD;
        Blacken({pGray, tSize}, pBinary, t.tRect, ToInt(dThreshold));
        tResults.adFrameThreshold[t.eCorner][t.nBand] = dThreshold;
    }
    return ORVEX_OK;
}

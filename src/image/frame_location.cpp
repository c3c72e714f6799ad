#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "core/line_scan.h"
#include "image/edge_scan.h"

using namespace orvex;

namespace {

struct FrameSearch {
    int nMargin;
    int nOffsetX;
    int nOffsetY;
};

// The frame's edges as seen from one start point: the row above or below it, the column beside it.
struct QuadrantEdges {
    int nRow;
    int nColumn;
};

struct Quadrant {
    bool bRight;
    bool bLower;
    int nStatus;
};

enum { nUpperLeft, nLowerLeft, nUpperRight, nLowerRight, nQuadrants };

constexpr Quadrant atQuadrants[nQuadrants] = {{false, false, ORVEX_FRAME_UPPER_LEFT},
                                              {false, true, ORVEX_FRAME_LOWER_LEFT},
                                              {true, false, ORVEX_FRAME_UPPER_RIGHT},
                                              {true, true, ORVEX_FRAME_LOWER_RIGHT}};

FrameSearch SearchOf(int nMaster) {
    // A value other than 0 and 1 mixes the slave's margin with the master's offsets, on purpose.
    const CameraParameters tOffsets = ParametersOf(nMaster != 0);
    return {ParametersOf(nMaster == 1).nFrameMargin, tOffsets.nFrameOffsetX, tOffsets.nFrameOffsetY};
}

// Start coordinate on one axis, kept two pixels clear of the border that it faces.
std::int64_t StartCoordinate(std::int64_t nCenter, std::int64_t nOffset, bool bUpward, std::int64_t nSize) {
    if (!bUpward)
        return std::max<std::int64_t>(nCenter - nOffset, 2);
    return nCenter + nOffset >= nSize - 2 ? nSize - 3 : nCenter + nOffset;
}

// Scans from nStart to the border with a segment of 5 pixels around nAcross.
bool FindFrameEdge(PlaneView tGrey, bool bRowLines, std::int64_t nAcross, std::int64_t nStart, bool bUpward,
                   int* pnEdge) {
    const int nBorder = bRowLines ? tGrey.tSize.nHeight : tGrey.tSize.nWidth;
    const LineScan tScan = {bRowLines, {nAcross - 2, nAcross + 2}, nStart, bUpward ? nBorder : 0, false};
    const std::optional<ScanBounds> o = BoundsInside(tGrey.tSize, tScan);
    return o && FindEdgeByLineSum(tGrey.pPixels, tGrey.tSize.nWidth, o->nX1, o->nY1, o->nX2, o->nY2,
                                  bRowLines, pnEdge);
}

bool FindQuadrantEdges(PlaneView tGrey, _POINTPOSITION ptCenter, const FrameSearch& tSearch,
                       const Quadrant& tQuadrant, QuadrantEdges* pEdges) {
    const std::int64_t x =
        StartCoordinate(ptCenter.x, tSearch.nOffsetX, tQuadrant.bRight, tGrey.tSize.nWidth);
    const std::int64_t y =
        StartCoordinate(ptCenter.y, tSearch.nOffsetY, tQuadrant.bLower, tGrey.tSize.nHeight);
    return FindFrameEdge(tGrey, true, x, y, tQuadrant.bLower, &pEdges->nRow) &&
           FindFrameEdge(tGrey, false, y, x, tQuadrant.bRight, &pEdges->nColumn);
}

_POINTPOSITION ClampedPoint(PictureSize tSize, std::int64_t x, std::int64_t y) {
    return {static_cast<int>(std::clamp<std::int64_t>(x, 0, tSize.nWidth - 1)),
            static_cast<int>(std::clamp<std::int64_t>(y, 0, tSize.nHeight - 1))};
}

} // namespace

int DualCamAlign_CalImageFrame(unsigned char* pGray, unsigned int nImageWidth, unsigned int nImageHeight,
                               int nCenterX, int nCenterY, _POINTPOSITION* pOuterLT, _POINTPOSITION* pOuterRD,
                               _POINTPOSITION* pInnerLT, _POINTPOSITION* pInnerRD, int nMaster) {
    const bool bUsable = IsUsableSize(nImageWidth, nImageHeight) && pGray != nullptr && pOuterLT != nullptr &&
                         pOuterRD != nullptr && pInnerLT != nullptr && pInnerRD != nullptr;
    if (!bUsable)
        return ORVEX_FRAME_UPPER_LEFT;
    const PictureSize tSize = {static_cast<int>(nImageWidth), static_cast<int>(nImageHeight)};
    const FrameSearch tSearch = SearchOf(nMaster);
    QuadrantEdges at[nQuadrants] = {};
    for (int i = 0; i < nQuadrants; ++i)
        if (!FindQuadrantEdges({pGray, tSize}, {nCenterX, nCenterY}, tSearch, atQuadrants[i], &at[i]))
            return atQuadrants[i].nStatus;

    const Range tLeft = Between(at[nUpperLeft].nColumn, at[nLowerLeft].nColumn);
    const Range tRight = Between(at[nUpperRight].nColumn, at[nLowerRight].nColumn);
    const Range tTop = Between(at[nUpperLeft].nRow, at[nUpperRight].nRow);
    const Range tBottom = Between(at[nLowerLeft].nRow, at[nLowerRight].nRow);
    const std::int64_t m = tSearch.nMargin;
    *pOuterLT = ClampedPoint(tSize, tLeft.nFirst - m, tTop.nFirst - m);
    *pOuterRD = ClampedPoint(tSize, tRight.nLast + m, tBottom.nLast + m);
    *pInnerLT = ClampedPoint(tSize, tLeft.nLast + m, tTop.nLast + m);
    *pInnerRD = ClampedPoint(tSize, tRight.nFirst - m, tBottom.nFirst - m);
    return ORVEX_OK;
}

#include "image/binary_window.h"

namespace orvex {
namespace {

int SumOfGrey(PlaneView tGrey, Rect tRect) {
    const Rect t = tRect.ClippedTo(tGrey.tSize.Bounds());
    int nSum = 0;
    for (std::int64_t y = t.tRows.nFirst; y <= t.tRows.nLast; ++y)
        for (std::int64_t x = t.tColumns.nFirst; x <= t.tColumns.nLast; ++x)
            nSum += tGrey.Row(y)[x];
    return nSum;
}

// The smallest grey value that reaches the threshold; 256 if none does.
int FirstBrightValue(double dThreshold) {
    int nGrey = 0;
    while (nGrey < 256 && !(dThreshold <= nGrey))
        ++nGrey;
    return nGrey;
}

int DarkNeighbours(const unsigned char* p, std::ptrdiff_t nStride) {
    const unsigned char *pAbove = p - nStride, *pBelow = p + nStride;
    return (pAbove[-1] == ubDark) + (pAbove[0] == ubDark) + (pAbove[1] == ubDark) + (p[-1] == ubDark) +
           (p[1] == ubDark) + (pBelow[-1] == ubDark) + (pBelow[0] == ubDark) + (pBelow[1] == ubDark);
}

} // namespace

double CornerPatchThreshold(PlaneView tGrey, CentreWindow t, double dRatio) {
    const int nPatchX = tGrey.tSize.nWidth > 640 ? 100 : 50;
    const int nPatchY = tGrey.tSize.nHeight > 480 ? 100 : 50;
    // The bottom patches leave the window's last row out; all others hold one line more than their size,
    // and the divisor ignores both. The slightly high mean is part of the design.
    const Range atRows[] = {{t.y0, t.y0 + nPatchY}, {t.y1 - nPatchY, t.y1 - 1}};
    const Range atColumns[] = {{t.x0, t.x0 + nPatchX}, {t.x1 - nPatchX, t.x1}};
    int nSum = 0;
    for (const Range& tRows : atRows)
        for (const Range& tColumns : atColumns)
            nSum += SumOfGrey(tGrey, {tColumns, tRows});
    const int nMean = nSum / (4 * nPatchX * nPatchY);
    return nMean * dRatio;
}

void BinariseWindow(PlaneView tGrey, CentreWindow tWindow, double dThreshold, unsigned char* pBinary) {
    const int nBright = FirstBrightValue(dThreshold);
    const Rect t = tWindow.Closed().ClippedTo(tGrey.tSize.Bounds());
    for (std::int64_t y = t.tRows.nFirst; y <= t.tRows.nLast; ++y) {
        const unsigned char* pGrey = tGrey.Row(y).pFirst;
        unsigned char* pRow = pBinary + y * tGrey.tSize.nWidth;
        for (std::int64_t x = t.tColumns.nFirst; x <= t.tColumns.nLast; ++x)
            pRow[x] = pGrey[x] >= nBright ? ubBright : ubDark;
    }
}

void CleanSpecks(PictureSize tSize, CentreWindow tWindow, unsigned char* pBinary) {
    const Rect t = tWindow.Closed().ClippedTo(tSize.Bounds());
    for (std::int64_t y = t.tRows.nFirst; y <= t.tRows.nLast; ++y)
        for (std::int64_t x = t.tColumns.nFirst; x <= t.tColumns.nLast; ++x) {
            unsigned char* p = pBinary + y * tSize.nWidth + x;
            const int nDark = DarkNeighbours(p, tSize.nWidth);
            if (*p == ubBright && nDark > 4)
                *p = ubDark;
            else if (*p == ubDark && nDark < 3)
                *p = ubBright;
        }
}

} // namespace orvex

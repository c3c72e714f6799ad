#include "image/binary_window.h"

#include "image/speck_cleaning.h"

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

// From the window's four corner patches, which show the chart's white: dRatio times their mean.
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

// The smallest grey value that reaches the threshold; 256 if none does.
int FirstBrightValue(double dThreshold) {
    int nGrey = 0;
    while (nGrey < 256 && !(dThreshold <= nGrey))
        ++nGrey;
    return nGrey;
}

} // namespace

std::optional<DarkBits> BinariseWindow(PlaneView tGrey, CentreWindow tWindow, double dRatio,
                                       double* pdThreshold) {
    std::optional<DarkBits> o = DarkBits::Bright(tWindow.Closed().ClippedTo(tGrey.tSize.Bounds()));
    if (!o)
        return o;
    *pdThreshold = CornerPatchThreshold(tGrey, tWindow, dRatio);
    SetDark(tGrey, FirstBrightValue(*pdThreshold), &*o);
    CleanSpecks(tGrey.tSize, &*o);
    return o;
}

} // namespace orvex

#pragma once

#include "core/plane.h"

#include <optional>

namespace orvex {

// A segment that moves line by line across a picture: rows that move along y, or columns that move along x.
struct LineScan {
    bool bRowLines;
    Range tSegment; // along the line
    std::int64_t nStart;
    std::int64_t nTarget;
    bool bWithTarget; // the target is the last line, else the line before it is
};

// The scan as the scanning functions take it: first and last column, first and last row.
struct ScanBounds {
    int nX1, nY1, nX2, nY2;
};

// Nothing if a line of the scan would leave the picture: such a scan finds nothing.
inline std::optional<ScanBounds> BoundsInside(PictureSize tSize, const LineScan& t) {
    const std::int64_t nBeforeTarget = t.nTarget + (t.nStart > t.nTarget ? 1 : -1);
    const Range tLines = Between(t.nStart, t.bWithTarget ? t.nTarget : nBeforeTarget);
    const Rect tScanned = t.bRowLines ? Rect{t.tSegment, tLines} : Rect{tLines, t.tSegment};
    if (!tSize.Bounds().Contains(tScanned))
        return std::nullopt;
    const int nStart = static_cast<int>(t.nStart), nTarget = static_cast<int>(t.nTarget);
    const int nFirst = static_cast<int>(t.tSegment.nFirst), nLast = static_cast<int>(t.tSegment.nLast);
    return t.bRowLines ? ScanBounds{nFirst, nStart, nLast, nTarget}
                       : ScanBounds{nStart, nFirst, nTarget, nLast};
}

} // namespace orvex

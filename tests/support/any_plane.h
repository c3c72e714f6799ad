#pragma once

#include "core/plane.h"
#include "support/plane.h"
#include "support/random.h"

namespace support {

// A length at or beside a border of the words, vectors and byte counters that the library works with.
inline int AnyLength(Random& t) {
    constexpr int anBorders[] = {2, 9, 17, 33, 64, 65, 128, 192, 256};
    return std::max(1, anBorders[t.Int(0, 8)] + t.Int(-2, 2));
}

// Noise of any density and depth, smooth in places, all dark or all bright.
inline Plane AnyPlane(Random& t) {
    const int nColumns = AnyLength(t), nRows = AnyLength(t) / (t.Int(0, 3) == 0 ? 1 : 4) + 1;
    const int nKind = t.Int(0, 7), nShare = t.Int(1, 99), nDepth = t.Int(1, 255);
    Plane tPlane(nColumns, nRows, nKind == 0 ? 0 : 255);
    for (unsigned char& ub : tPlane.aPixels)
        if (nKind > 1)
            ub = t.Int(0, 99) < nShare ? static_cast<unsigned char>(t.Int(0, nDepth)) : 255;
    if (nKind > 5)
        tPlane.Fill(t.Int(0, nColumns), t.Int(0, nRows), t.Int(0, nColumns), t.Int(0, nRows), 0);
    return tPlane;
}

// A range over, at or beside both ends of a line.
inline orvex::Range AnyRange(Random& t, int nLength) {
    const int nFirst = t.Int(0, 2) == 0 ? t.Int(-9, 1) : t.Int(0, nLength);
    return {nFirst, t.Int(0, 2) == 0 ? nLength + t.Int(-3, 9) : nFirst + t.Int(-1, nLength)};
}

// Of columns and rows of a plane, or empty.
inline orvex::Rect AnyRect(Random& t, const Plane& tPlane) {
    const orvex::Range tColumns = AnyRange(t, tPlane.nColumns), tRows = AnyRange(t, tPlane.nRows);
    return orvex::Rect{tColumns, tRows}.ClippedTo(orvex::PictureSize{tPlane.nColumns, tPlane.nRows}.Bounds());
}

inline orvex::PlaneView ViewOf(const Plane& t) {
    return {t.aPixels.data(), {t.nColumns, t.nRows}};
}

} // namespace support

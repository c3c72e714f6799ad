#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orvex {

// An inclusive range of coordinates; empty if nLast < nFirst. 64 bits, because a window or a scan that a
// hostile centre places may lie anywhere.
struct Range {
    std::int64_t nFirst;
    std::int64_t nLast;

    constexpr bool IsEmpty() const { return nLast < nFirst; }
    constexpr bool Contains(std::int64_t n) const { return nFirst <= n && n <= nLast; }
    constexpr bool Contains(Range t) const { return nFirst <= t.nFirst && t.nLast <= nLast; }
    constexpr Range ClippedTo(Range t) const {
        return {std::max(nFirst, t.nFirst), std::min(nLast, t.nLast)};
    }
};

// The range from its first to its last coordinate that satisfies the test; empty if none does.
template <typename Test>
constexpr Range Trimmed(Range t, Test&& IsKept) {
    while (!t.IsEmpty() && !IsKept(t.nFirst))
        ++t.nFirst;
    while (!t.IsEmpty() && !IsKept(t.nLast))
        --t.nLast;
    return t;
}

// The range between two coordinates, whichever comes first.
constexpr Range Between(std::int64_t nOne, std::int64_t nOther) {
    return {std::min(nOne, nOther), std::max(nOne, nOther)};
}

// A rectangle of pixels, all bounds inclusive.
struct Rect {
    Range tColumns;
    Range tRows;

    constexpr bool IsEmpty() const { return tColumns.IsEmpty() || tRows.IsEmpty(); }
    constexpr bool Contains(Rect t) const { return tColumns.Contains(t.tColumns) && tRows.Contains(t.tRows); }
    constexpr Rect ClippedTo(Rect t) const {
        return {tColumns.ClippedTo(t.tColumns), tRows.ClippedTo(t.tRows)};
    }
};

struct PictureSize {
    int nWidth;
    int nHeight;

    constexpr Range Columns() const { return {0, std::int64_t{nWidth} - 1}; }
    constexpr Range Rows() const { return {0, std::int64_t{nHeight} - 1}; }
    constexpr Rect Bounds() const { return {Columns(), Rows()}; }
    constexpr std::size_t Pixels() const {
        return static_cast<std::size_t>(nWidth) * static_cast<std::size_t>(nHeight);
    }
};

// Sides fit the 16-bit indices of the centre search, the pixel count a 32-bit signed product.
constexpr bool IsUsableSize(std::int64_t nImageWidth, std::int64_t nImageHeight) {
    constexpr std::int64_t nMaxSide = 65535, nMaxPixels = 2147483647;
    return nImageWidth >= 1 && nImageHeight >= 1 && nImageWidth <= nMaxSide && nImageHeight <= nMaxSide &&
           nImageWidth * nImageHeight <= nMaxPixels;
}

// One row or column of a plane.
struct LineView {
    const unsigned char* pFirst;
    std::ptrdiff_t nStride;

    int operator[](std::int64_t n) const { return pFirst[n * nStride]; }
};

// A plane of 8-bit pixels, row-major, without padding; not owned.
struct PlaneView {
    const unsigned char* pPixels;
    PictureSize tSize;

    LineView Row(std::int64_t y) const { return {pPixels + y * tSize.nWidth, 1}; }
    LineView Column(std::int64_t x) const { return {pPixels + x, tSize.nWidth}; }
};

} // namespace orvex

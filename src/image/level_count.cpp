#include "image/level_count.h"

namespace orvex {
namespace {

constexpr std::int64_t nBlockColumns = 32, nMostRows = 255;

// Counts of the columns of a block over as many rows as a byte can count: compilers make a few vectors of
// them.
LevelCount CountInBlock(const unsigned char* pPixels, std::ptrdiff_t nStride, std::int64_t nRows,
                        unsigned char ubLevel, std::int64_t nSkippedColumns) {
    unsigned char aubBelow[nBlockColumns] = {}, aubUpTo[nBlockColumns] = {};
    for (std::int64_t y = 0, n = 0; y < nRows; ++y, n += nStride) {
        for (std::int64_t i = 0; i < nBlockColumns; ++i)
            aubBelow[i] = static_cast<unsigned char>(aubBelow[i] + (pPixels[n + i] < ubLevel ? 1 : 0));
        for (std::int64_t i = 0; i < nBlockColumns; ++i)
            aubUpTo[i] = static_cast<unsigned char>(aubUpTo[i] + (pPixels[n + i] <= ubLevel ? 1 : 0));
    }
    LevelCount t = {};
    for (std::int64_t i = nSkippedColumns; i < nBlockColumns; ++i) {
        t.nBelow += aubBelow[i];
        t.nUpTo += aubUpTo[i];
    }
    return t;
}

LevelCount CountPixelByPixel(const unsigned char* pPixels, std::ptrdiff_t nStride, std::int64_t nRows,
                             unsigned char ubLevel, std::int64_t nColumns) {
    LevelCount t = {};
    for (std::int64_t y = 0; y < nRows; ++y)
        for (std::int64_t x = 0; x < nColumns; ++x) {
            t.nBelow += pPixels[y * nStride + x] < ubLevel ? 1 : 0;
            t.nUpTo += pPixels[y * nStride + x] <= ubLevel ? 1 : 0;
        }
    return t;
}

} // namespace

LevelCount CountAtLevel(PlaneView tGrey, Rect tRect, unsigned char ubLevel) {
    const std::int64_t nColumns = tRect.tColumns.nLast - tRect.tColumns.nFirst + 1;
    const std::ptrdiff_t nStride = tGrey.tSize.nWidth;
    LevelCount tSum = {};
    const auto Add = [&](LevelCount t) { tSum = {tSum.nBelow + t.nBelow, tSum.nUpTo + t.nUpTo}; };
    for (std::int64_t y = tRect.tRows.nFirst; y <= tRect.tRows.nLast; y += nMostRows) {
        const std::int64_t nRows = std::min(nMostRows, tRect.tRows.nLast - y + 1);
        const unsigned char* const pPixels = tGrey.Row(y).pFirst + tRect.tColumns.nFirst;
        if (nColumns < nBlockColumns)
            Add(CountPixelByPixel(pPixels, nStride, nRows, ubLevel, nColumns));
        // The last block lies over columns that are counted already.
        else
            for (std::int64_t x = 0; x < nColumns; x += nBlockColumns) {
                const std::int64_t nFirst = std::min(x, nColumns - nBlockColumns);
                Add(CountInBlock(pPixels + nFirst, nStride, nRows, ubLevel, x - nFirst));
            }
    }
    return tSum;
}

} // namespace orvex

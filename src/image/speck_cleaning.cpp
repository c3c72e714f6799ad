#include "image/speck_cleaning.h"

namespace orvex {
namespace {

using Word = DarkBits::Word;

// Bits of one weight of 64 sums, and those of the next weight.
struct Sums {
    Word nOnes;
    Word nTwos;
};

constexpr Sums Add(Word a, Word b, Word c) {
    const Word n = a ^ b;
    return {n ^ c, (a & b) | (n & c)};
}

// The pixels before and behind a word's own, each in the place of the one that it is beside.
Word Before(const Word* p) {
    return p[0] << 1 | p[-1] >> 63;
}
Word Behind(const Word* p) {
    return p[0] >> 1 | p[1] << 63;
}

// The row above is clean already and the rows from this one on are not, so that within a row only the left
// neighbour's new value has to be waited for. A pixel is dark if enough of the other seven are (nSure), or if
// one fewer are and the left one is (nWithLeft): the left one's value is a carry that 64 pixels generate or
// pass on, and one addition computes them all. The bits behind a narrow rectangle's columns stay bright: each
// has three dark neighbours at most.
void CleanRow(DarkBits* pBits, std::int64_t y) {
    const Word *const pAbove = pBits->Row(y - 1), *const pBelow = pBits->Row(y + 1);
    Word* const pRow = pBits->Row(y);
    Word nLeft = pRow[-1] >> 63;
    for (std::int64_t i = 0; i < pBits->Words(); ++i) {
        // Most words are all bright, as are those above and below: a pixel at either end then has three dark
        // neighbours at most.
        if ((pAbove[i] | pRow[i] | pBelow[i]) == 0) {
            nLeft = 0;
            continue;
        }
        const Sums tAbove = Add(Before(pAbove + i), pAbove[i], Behind(pAbove + i));
        const Sums tBelow = Add(Before(pBelow + i), pBelow[i], Behind(pBelow + i));
        const Sums tOnes = Add(tAbove.nOnes, tBelow.nOnes, Behind(pRow + i));
        const Sums tTwos = Add(tAbove.nTwos, tBelow.nTwos, tOnes.nTwos);
        const Word nOnes = tOnes.nOnes, nTwos = tTwos.nOnes, nFours = tTwos.nTwos;
        const Word nDark = pRow[i];
        const Word nSure = (nFours & (nTwos | nOnes)) | (nDark & (nFours | (nTwos & nOnes))); // 5 or 3
        const Word nWithLeft = nFours | (nDark & nTwos);                                      // 4 or 2
        const Word nLefts = (nSure + nWithLeft + nLeft) ^ nSure ^ nWithLeft;
        pRow[i] = nSure | (nWithLeft & nLefts);
        nLeft = pRow[i] >> 63;
    }
}

// The margin of a rectangle as wide as the picture holds the far ends of the adjacent rows, as linear
// addressing has it: left of a row the last pixel of the row above, right of it the first of the row below.
void SetMarginsBeside(DarkBits* pBits, std::int64_t y) {
    pBits->Set(-1, y + 1, pBits->IsDark(pBits->Columns() - 1, y));
    pBits->Set(pBits->Columns(), y - 1, pBits->IsDark(0, y));
}

// The one pixel whose neighbour above and to the right is the first of its own row, which is clean by now. In
// a picture of a single column that is the pixel itself, whose own change only speaks for it.
void CleanRowEnd(DarkBits* pBits, std::int64_t y, bool bWasDark) {
    const std::int64_t x = pBits->Columns() - 1;
    pBits->Set(x + 1, y - 1, pBits->IsDark(0, y));
    int nDark = 0;
    for (std::int64_t i = 0; i < 9; ++i)
        nDark += i != 4 && pBits->IsDark(x - 1 + i % 3, y - 1 + i / 3);
    pBits->Set(x, y, nDark > (bWasDark ? 2 : 4));
    SetMarginsBeside(pBits, y);
}

} // namespace

void CleanSpecks(PictureSize tSize, DarkBits* pBits) {
    if (pBits->Columns() < tSize.nWidth) {
        for (std::int64_t y = 0; y < pBits->Rows(); ++y)
            CleanRow(pBits, y);
        return;
    }
    const std::int64_t x = pBits->Columns() - 1;
    for (std::int64_t y = 0; y < pBits->Rows(); ++y)
        SetMarginsBeside(pBits, y);
    for (std::int64_t y = 0; y < pBits->Rows(); ++y) {
        const bool bWasDark = pBits->IsDark(x, y), bMarginDark = pBits->IsDark(x + 1, y);
        CleanRow(pBits, y);
        pBits->Set(x + 1, y, bMarginDark);
        CleanRowEnd(pBits, y, bWasDark);
    }
}

} // namespace orvex

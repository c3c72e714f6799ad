#include "image/dark_bits.h"

#include "image/dark_word.h"

#include <bit>
#include <cstring>

namespace orvex {
namespace {

using Word = DarkBits::Word;

// The first nPixels pixels of a word. A product lays eight bits over eight bytes; adding 7F to what is left
// of them shows in each byte's highest bit whether it is 0.
void PaintWord(Word nDark, std::size_t nPixels, unsigned char* pPixels) {
    constexpr Word nEachByte = 0x0101010101010101u;
    Word an[8];
    for (int i = 0; i < 8; ++i) {
        const Word nSpread = (nDark >> 8 * i & 0xFF) * nEachByte & 0x8040201008040201u;
        an[i] = ~((((nSpread + 0x7F * nEachByte) >> 7) & nEachByte) * 0xFF);
    }
    std::memcpy(pPixels, an, nPixels);
}

} // namespace

std::optional<DarkBits> DarkBits::Bright(Rect tRect) {
    DarkBits t;
    t.m_tRect = tRect;
    if (!tRect.IsEmpty()) {
        t.m_nColumns = tRect.tColumns.nLast - tRect.tColumns.nFirst + 1;
        t.m_nRows = tRect.tRows.nLast - tRect.tRows.nFirst + 1;
    }
    // Two rows share the word between them: the margin right of one and left of the next are different bits.
    t.m_pWords = MakeScratch<Word>(static_cast<std::size_t>((t.m_nRows + 2) * (t.Words() + 1) + 1));
    if (!t.m_pWords)
        return std::nullopt;
    return t;
}

void SetDark(PlaneView tPlane, int nBright, DarkBits* pBits) {
    if (nBright == 0)
        return;
    const auto ubLastDark = static_cast<unsigned char>(nBright - 1);
    const Rect& t = pBits->Place();
    for (std::int64_t y = 0; y < pBits->Rows(); ++y)
        for (std::int64_t i = 0; i < pBits->Words(); ++i)
            pBits->Row(y)[i] =
                DarkWord(tPlane, t.tRows.nFirst + y, t.tColumns.nFirst + i * DarkBits::nWordBits,
                         t.tColumns.nLast, ubLastDark);
}

void PaintBinary(const DarkBits& tBits, PictureSize tSize, unsigned char* pBinary) {
    std::memset(pBinary, ubBright, tSize.Pixels());
    for (std::int64_t y = 0; y < tBits.Rows(); ++y) {
        unsigned char* const pRow =
            pBinary + (tBits.Place().tRows.nFirst + y) * tSize.nWidth + tBits.Place().tColumns.nFirst;
        for (std::int64_t i = 0; i < tBits.Words(); ++i) {
            const Word nMask = DarkBits::BitsOf(i, 0, tBits.Columns()), nDark = tBits.Row(y)[i] & nMask;
            if (nDark != 0)
                PaintWord(nDark, static_cast<std::size_t>(std::popcount(nMask)),
                          pRow + i * DarkBits::nWordBits);
        }
    }
}

} // namespace orvex

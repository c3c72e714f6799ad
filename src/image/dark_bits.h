#pragma once

#include "core/plane.h"
#include "core/scratch.h"

#include <optional>

namespace orvex {

constexpr unsigned char ubDark = 0;
constexpr unsigned char ubBright = 255;

// The dark pixels of a rectangle of a picture as bits, 64 to a word, a row's first pixel the lowest: what is
// done with a word is done with 64 pixels at once. Around the rectangle lies one line of bright pixels on
// every side, which can be read and set too.
class DarkBits {
public:
    using Word = std::uint64_t;
    static constexpr int nWordBits = 64;

    // All bright; nothing without memory. The rectangle lies in the picture or is empty.
    static std::optional<DarkBits> Bright(Rect tRect);

    // Coordinates count from the rectangle's first pixel on: -1 is the line before it.
    std::int64_t Columns() const { return m_nColumns; }
    std::int64_t Rows() const { return m_nRows; }
    std::int64_t Words() const { return (m_nColumns + nWordBits - 1) / nWordBits; }
    const Rect& Place() const { return m_tRect; }

    // The words of a row. The one before the first and the one behind the last are the margin's; the margin's
    // right bit may stand in the last word instead.
    Word* Row(std::int64_t y) { return m_pWords.get() + 1 + (y + 1) * (Words() + 1); }
    const Word* Row(std::int64_t y) const { return m_pWords.get() + 1 + (y + 1) * (Words() + 1); }
    // The bits of a word that stand for columns from nFirst to, without, nEnd.
    static constexpr Word BitsOf(std::int64_t nWord, std::int64_t nFirst, std::int64_t nEnd) {
        return BitsBelow(nEnd - nWord * nWordBits) & ~BitsBelow(nFirst - nWord * nWordBits);
    }

    bool IsDark(std::int64_t x, std::int64_t y) const { return (Row(y)[WordOf(x)] >> (x & 63) & 1) != 0; }
    void Set(std::int64_t x, std::int64_t y, bool bDark) {
        const Word nBit = Word{1} << (x & 63);
        Word& nWord = Row(y)[WordOf(x)];
        nWord = bDark ? nWord | nBit : nWord & ~nBit;
    }

private:
    // From the margin's word, -1, on.
    static constexpr std::int64_t WordOf(std::int64_t x) { return (x + nWordBits) / nWordBits - 1; }
    static constexpr Word BitsBelow(std::int64_t n) {
        return n >= nWordBits ? ~Word{0} : n <= 0 ? 0 : (Word{1} << n) - 1;
    }

    Rect m_tRect = {};
    std::int64_t m_nColumns = 0;
    std::int64_t m_nRows = 0;
    Scratch<Word> m_pWords;
};

// Sets the pixels darker than nBright, 0 to 256, in bits that are all bright.
void SetDark(PlaneView tPlane, int nBright, DarkBits* pBits);

// The whole plane, bright but for the bits' dark pixels.
void PaintBinary(const DarkBits& tBits, PictureSize tSize, unsigned char* pBinary);

} // namespace orvex

#pragma once

#include "image/dark_bits.h"

#include <bit>
#include <cstring>

namespace orvex {

static_assert(std::endian::native == std::endian::little, "the first of eight bytes is a number's lowest");

// Sixteen bytes that both compilers compute with at once, on every processor; a loop over so few they unroll
// first and then do byte by byte.
using SixteenBytes [[gnu::vector_size(16)]] = unsigned char;

// 64 neighbouring pixels as bits: dark are those of at most the given value. Most words are all bright, which
// the darkest of every fourth of them shows; else eight bytes of 0 or 1 become eight bits by a product whose
// highest byte collects them.
[[gnu::always_inline]] inline DarkBits::Word WholeDarkWord(const unsigned char* pPixels,
                                                           unsigned char ubLastDark) {
    const auto Darker = [](SixteenBytes a, SixteenBytes b) { return a < b ? a : b; };
    const SixteenBytes tLastDark = SixteenBytes{} + ubLastDark;
    SixteenBytes at[4];
    std::memcpy(at, pPixels, sizeof at);
    const auto tAny = Darker(Darker(at[0], at[1]), Darker(at[2], at[3])) <= tLastDark;
    DarkBits::Word anAny[2], an[8], nDark = 0;
    std::memcpy(anAny, &tAny, sizeof anAny);
    if ((anAny[0] | anAny[1]) == 0)
        return 0;
    for (SixteenBytes& t : at)
        t = t <= tLastDark ? SixteenBytes{} + 1 : SixteenBytes{};
    std::memcpy(an, at, sizeof an);
    for (int i = 0; i < 8; ++i)
        nDark |= an[i] * 0x0102040810204080u >> 56 << 8 * i;
    return nDark;
}

// The row's pixels from column x on, without those behind nLast, at most 64: dark are those of at most the
// given value.
[[gnu::always_inline]] inline DarkBits::Word DarkWord(PlaneView tPlane, std::int64_t y, std::int64_t x,
                                                      std::int64_t nLast, unsigned char ubLastDark) {
    const unsigned char* const pPixels = tPlane.Row(y).pFirst + x;
    const std::int64_t nPixels = nLast - x + 1;
    if (nPixels >= DarkBits::nWordBits)
        return WholeDarkWord(pPixels, ubLastDark);
    // What lies behind the pixels is read with them, but not behind the plane.
    const DarkBits::Word nMask = DarkBits::BitsOf(0, 0, nPixels);
    if (tPlane.pPixels + tPlane.tSize.Pixels() - pPixels >= DarkBits::nWordBits)
        return WholeDarkWord(pPixels, ubLastDark) & nMask;
    unsigned char aub[DarkBits::nWordBits] = {};
    std::memcpy(aub, pPixels, static_cast<std::size_t>(nPixels));
    return WholeDarkWord(aub, ubLastDark) & nMask;
}

} // namespace orvex

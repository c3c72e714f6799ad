#include "image/speck_cleaning.h"
#include "support/any_plane.h"

#include <gtest/gtest.h>

using namespace orvex;
using namespace support;

namespace {

// The sweep pixel by pixel, on a plane with enough white before and behind it for linear addressing.
std::vector<unsigned char> PlainlyCleaned(const Plane& t, Rect tRect, int nBright) {
    const std::ptrdiff_t nStride = t.nColumns, nGuard = nStride + 1;
    std::vector<unsigned char> a(t.aPixels.size() + 2 * static_cast<std::size_t>(nGuard), ubBright);
    unsigned char* const pFirst = a.data() + nGuard;
    const auto ForEach = [&](auto&& Do) {
        for (std::int64_t y = tRect.tRows.nFirst; y <= tRect.tRows.nLast; ++y)
            for (std::int64_t x = tRect.tColumns.nFirst; x <= tRect.tColumns.nLast; ++x)
                Do(pFirst + y * nStride + x, y * nStride + x);
    };
    ForEach([&](unsigned char* p, std::int64_t n) {
        *p = t.aPixels[static_cast<std::size_t>(n)] < nBright ? ubDark : ubBright;
    });
    ForEach([&](unsigned char* p, std::int64_t) {
        int nDark = 0;
        for (const std::ptrdiff_t n : {-nStride, std::ptrdiff_t{0}, nStride})
            nDark += (p[n - 1] == ubDark) + (n != 0 && p[n] == ubDark) + (p[n + 1] == ubDark);
        *p = nDark > (*p == ubDark ? 2 : 4) ? ubDark : ubBright;
    });
    a.erase(a.begin(), a.begin() + nGuard);
    a.resize(t.aPixels.size());
    return a;
}

} // namespace

TEST(SpeckCleaning, WordsGiveWhatTheSweepPixelByPixelGives) {
    Random t(7);
    for (int i = 0; i < 4000; ++i) {
        const Plane tPlane = AnyPlane(t);
        const PictureSize tSize = ViewOf(tPlane).tSize;
        const Rect tRect = AnyRect(t, tPlane);
        const int nBright = t.Int(0, 3) == 0 ? 256 * t.Int(0, 1) : t.Int(1, 255);
        std::optional<DarkBits> o = DarkBits::Bright(tRect);
        ASSERT_TRUE(o);
        SetDark(ViewOf(tPlane), nBright, &*o);
        CleanSpecks(tSize, &*o);
        std::vector<unsigned char> aBinary(tPlane.aPixels.size(), 77);
        PaintBinary(*o, tSize, aBinary.data());
        ASSERT_EQ(aBinary, PlainlyCleaned(tPlane, tRect, nBright))
            << "plane " << i << ": " << tSize.nWidth << " x " << tSize.nHeight << ", window from "
            << tRect.tColumns.nFirst << ' ' << tRect.tRows.nFirst << " to " << tRect.tColumns.nLast << ' '
            << tRect.tRows.nLast;
    }
}

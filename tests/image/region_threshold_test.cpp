#include "image/region_threshold.h"

#include "image/level_count.h"
#include "support/any_plane.h"

#include <gtest/gtest.h>

using namespace support;

namespace {

constexpr double dNone = -1.0;

// Both levels from all pixels in order.
double PlainThreshold(const Plane& t, int x1, int y1, int x2, int y2, double dDarkFraction,
                      double dBrightFraction, double dBlend) {
    std::vector<int> an;
    for (int y = y1; y <= y2; ++y)
        for (int x = x1; x <= x2; ++x)
            an.push_back(t.aPixels[static_cast<std::size_t>(y * t.nColumns + x)]);
    std::sort(an.begin(), an.end());
    const auto nPixels = static_cast<double>(an.size());
    // The number of pixels that must lie up to a level; 0 and none are met by the first level of all.
    const double dDarkest = std::floor(nPixels * dDarkFraction),
                 dBrightest = std::floor(nPixels * dBrightFraction);
    if (!(dDarkest < nPixels && dBrightest < nPixels))
        return dNone;
    const double dDark = dDarkest < 0 ? 0 : an[static_cast<std::size_t>(dDarkest)];
    const double dBright = dBrightest < 0 ? 255 : an[an.size() - 1 - static_cast<std::size_t>(dBrightest)];
    if (dDark > dBright)
        return dNone;
    return 0.45 * dBright < dDark ? 0.45 * dBright : dDark + (dBright - dDark) * dBlend;
}

} // namespace

TEST(RegionThreshold, CountingGivesWhatAllPixelsInOrderGive) {
    Random t(9);
    for (int i = 0; i < 6000; ++i) {
        Plane tPlane = AnyPlane(t);
        if (const int nBlur = t.Int(-4, 3);
            nBlur > 0) // levels close together, darker from one end to the other
            for (int n = 0, nPixels = tPlane.nColumns * tPlane.nRows; n < nPixels; ++n) {
                unsigned char& ub = tPlane.aPixels[static_cast<std::size_t>(n)];
                ub = static_cast<unsigned char>(ub / 16 + t.Int(0, nBlur) + n * 120 / nPixels);
            }
        const int x1 = t.Int(0, 9) % tPlane.nColumns, x2 = t.Int(x1, tPlane.nColumns - 1);
        const int y1 = t.Int(0, 9) % tPlane.nRows, y2 = t.Int(y1, tPlane.nRows - 1);
        const double adShares[] = {-0.1, 0.0, 0.01, 0.025, 0.5, 0.97, 1.0, std::nan("")};
        double adFraction[] = {0.025, 0.5};
        for (double& d : adFraction)
            if (const int n = t.Int(0, 5); n < 4)
                d = n < 2 ? adShares[t.Int(0, 7)] : t.Real(0, 1);
        double dThreshold = dNone;
        const bool bFound = orvex::CalcRegionThreshold(tPlane.Data(), tPlane.nColumns, x1, y1, x2, y2,
                                                       adFraction[0], adFraction[1], 0.15, &dThreshold);
        EXPECT_EQ(bFound, dThreshold != dNone);
        ASSERT_EQ(dThreshold, PlainThreshold(tPlane, x1, y1, x2, y2, adFraction[0], adFraction[1], 0.15))
            << "plane " << i << ": columns " << x1 << " to " << x2 << ", rows " << y1 << " to " << y2
            << ", shares " << adFraction[0] << ' ' << adFraction[1];
    }
}

TEST(RegionThreshold, NoPixelsGiveNone) {
    double dThreshold = dNone;
    EXPECT_FALSE(
        orvex::CalcRegionThreshold(Plane(9, 9, 200).Data(), 9, 5, 5, 4, 8, 0.1, 0.1, 0.15, &dThreshold));
    EXPECT_EQ(dThreshold, dNone);
}

TEST(RegionThreshold, HalfThePixelsAreNotMoreThanHalf) {
    for (int nRows = 64; nRows < 96; ++nRows) {
        Plane tPlane(128, nRows, 200);
        for (std::size_t i = 0, nPixels = tPlane.aPixels.size(); i < nPixels; ++i)
            if (i * 7919 % nPixels < nPixels / 2)
                tPlane.aPixels[i] = 40;
        double dThreshold = dNone;
        orvex::CalcRegionThreshold(tPlane.Data(), 128, 0, 0, 127, nRows - 1, 0.5, 0.1, 0.15, &dThreshold);
        EXPECT_EQ(dThreshold, PlainThreshold(tPlane, 0, 0, 127, nRows - 1, 0.5, 0.1, 0.15)) << nRows;
    }
}

TEST(LevelCount, CountsEveryPixelOnce) {
    Random t(10);
    for (int i = 0; i < 2000; ++i) {
        const Plane tPlane = AnyPlane(t);
        const orvex::Rect tRect = AnyRect(t, tPlane);
        if (tRect.IsEmpty())
            continue;
        const auto ubLevel = static_cast<unsigned char>(t.Int(0, 255));
        unsigned int nBelow = 0, nUpTo = 0;
        for (std::int64_t y = tRect.tRows.nFirst; y <= tRect.tRows.nLast; ++y)
            for (std::int64_t x = tRect.tColumns.nFirst; x <= tRect.tColumns.nLast; ++x) {
                nBelow += ViewOf(tPlane).Row(y)[x] < ubLevel ? 1 : 0;
                nUpTo += ViewOf(tPlane).Row(y)[x] <= ubLevel ? 1 : 0;
            }
        const orvex::LevelCount tCount = orvex::CountAtLevel(ViewOf(tPlane), tRect, ubLevel);
        ASSERT_EQ(tCount.nBelow, nBelow);
        ASSERT_EQ(tCount.nUpTo, nUpTo);
    }
}

#include "image/region_threshold.h"

#include "core/plane.h"

#include <array>
#include <optional>

namespace orvex {
namespace {

using Histogram = std::array<std::uint32_t, 256>;

// A dark level above this share of the bright level is no ink: the threshold is then capped to the share.
constexpr double dHighestDarkShare = 0.45;

Histogram HistogramOf(PlaneView tGrey, Rect t) {
    Histogram an = {};
    for (std::int64_t y = t.tRows.nFirst; y <= t.tRows.nLast; ++y)
        for (std::int64_t x = t.tColumns.nFirst; x <= t.tColumns.nLast; ++x)
            ++an[static_cast<std::size_t>(tGrey.Row(y)[x])];
    return an;
}

// The first level, walking from the dark (nStep 1) or the bright end (nStep -1), up to which more than the
// given number of pixels lie.
std::optional<int> LevelBeyond(const Histogram& an, double dPixels, int nStep) {
    std::uint32_t nCount = 0;
    for (int nLevel = nStep > 0 ? 0 : 255; nLevel >= 0 && nLevel <= 255; nLevel += nStep) {
        nCount += an[static_cast<std::size_t>(nLevel)];
        if (nCount > dPixels)
            return nLevel;
    }
    return std::nullopt;
}

} // namespace

bool CalcRegionThreshold(const unsigned char* pGray, int nStride, int nX1, int nY1, int nX2, int nY2,
                         double dDarkFraction, double dBrightFraction, double dBlend, double* pdThreshold) {
    const Rect tRect = {{nX1, nX2}, {nY1, nY2}};
    if (tRect.IsEmpty())
        return false;
    const Histogram an = HistogramOf({pGray, {nStride, 0}}, tRect);
    const auto dPixels = static_cast<double>((std::int64_t{nX2} - nX1 + 1) * (std::int64_t{nY2} - nY1 + 1));
    const std::optional<int> oDark = LevelBeyond(an, dPixels * dDarkFraction, 1);
    const std::optional<int> oBright = LevelBeyond(an, dPixels * dBrightFraction, -1);
    if (!oDark || !oBright || *oDark > *oBright)
        return false;
    const double dDark = *oDark, dBright = *oBright;
    const double dCap = dHighestDarkShare * dBright;
    if (pdThreshold != nullptr)
        *pdThreshold = dCap < dDark ? dCap : dDark + (dBright - dDark) * dBlend;
    return true;
}

} // namespace orvex

#include "geometry/dark_histograms.h"

namespace orvex {
namespace {

constexpr int nRunLength = 100;
constexpr int nLargestCountOfNoRun = 89;

// nStep 1: the entries behind nEntry belong to its run; -1: those before it.
bool IsDense(std::span<const double> ad, int nEntry, int nStep) {
    const auto nSize = static_cast<int>(ad.size());
    const auto IsFilled = [&](int n) {
        return n >= 0 && n < nSize && ad[static_cast<std::size_t>(n)] != 0.0;
    };
    if (!IsFilled(nEntry))
        return false;
    int nFilled = 0;
    for (int i = 1; i <= nRunLength; ++i)
        nFilled += IsFilled(nEntry + i * nStep);
    return nFilled > nLargestCountOfNoRun;
}

} // namespace

std::optional<DarkHistograms> CountDark(PlaneView tBinary, Rect tRect) {
    const PictureSize tSize = tBinary.tSize;
    DarkHistograms t = {MakeScratch<double>(static_cast<std::size_t>(tSize.nWidth)),
                        MakeScratch<double>(static_cast<std::size_t>(tSize.nHeight)), tSize};
    if (!t.pColumns || !t.pRows)
        return std::nullopt;
    const Rect tInside = tRect.ClippedTo(tSize.Bounds());
    for (std::int64_t y = tInside.tRows.nFirst; y <= tInside.tRows.nLast; ++y) {
        const LineView tRow = tBinary.Row(y);
        int nDarkInRow = 0;
        for (std::int64_t x = tInside.tColumns.nFirst; x <= tInside.tColumns.nLast; ++x) {
            const bool bDark = tRow[x] == 0;
            t.pColumns[static_cast<std::size_t>(x)] += bDark ? 1.0 : 0.0;
            nDarkInRow += bDark;
        }
        t.pRows[static_cast<std::size_t>(y)] = nDarkInRow;
    }
    return t;
} // NOLINT(clang-analyzer-unix.Malloc): both arrays have moved into the result

std::optional<int> FirstOfDenseRun(std::span<const double> adHistogram) {
    const auto nSize = static_cast<int>(adHistogram.size());
    for (int i = 0; i < nSize; ++i)
        if (IsDense(adHistogram, i, 1))
            return i;
    return std::nullopt;
}

std::optional<int> LastOfDenseRun(std::span<const double> adHistogram) {
    for (int i = static_cast<int>(adHistogram.size()) - 1; i >= 0; --i)
        if (IsDense(adHistogram, i, -1))
            return i;
    return std::nullopt;
}

} // namespace orvex

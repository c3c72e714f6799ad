#include "geometry/dark_histograms.h"

#include <bit>
#include <functional>
#include <numeric>

namespace orvex {
namespace {

constexpr int nRunLength = 100;
constexpr int nLargestCountOfNoRun = 89;

using Word = DarkBits::Word;

// A counter for each bit of a word: the first word holds the lowest bits of all 64, and so on. A picture has
// fewer than 2^16 rows.
struct WordCounters {
    Word anDigits[16] = {};

    void Add(Word nBits) {
        for (int i = 0; nBits != 0; ++i) {
            const Word nCarry = anDigits[i] & nBits;
            anDigits[i] ^= nBits;
            nBits = nCarry;
        }
    }
    Word Counted() const { // the bits whose counters are not 0
        return std::accumulate(std::begin(anDigits), std::end(anDigits), Word{0}, std::bit_or<>());
    }
    int Count(int nBit) const {
        int n = 0;
        for (int i = 0; i < 16; ++i)
            n |= static_cast<int>(anDigits[i] >> nBit & 1) << i;
        return n;
    }
};

// The first entry, from nFirst on, that is not empty and has enough such entries behind it in the direction
// of nStep.
std::optional<int> DenseRun(std::span<const double> ad, int nFirst, int nStep) {
    const auto nSize = static_cast<int>(ad.size());
    const auto IsFilled = [&](int n) {
        return n >= 0 && n < nSize && ad[static_cast<std::size_t>(n)] != 0.0 ? 1 : 0;
    };
    int nFilled = 0;
    for (int i = 1; i <= nRunLength; ++i)
        nFilled += IsFilled(nFirst + i * nStep);
    for (int n = nFirst; n >= 0 && n < nSize; n += nStep) {
        if (IsFilled(n) != 0 && nFilled > nLargestCountOfNoRun)
            return n;
        nFilled += IsFilled(n + (nRunLength + 1) * nStep) - IsFilled(n + nStep);
    }
    return std::nullopt;
}

} // namespace

std::optional<DarkHistograms> CountDark(const DarkBits& tDark, PictureSize tSize, Rect tRect) {
    DarkHistograms t = {
        MakeScratch<double>(static_cast<std::size_t>(tSize.nWidth) + static_cast<std::size_t>(tSize.nHeight)),
        tSize};
    if (!t.pCounts)
        return std::nullopt;
    if (tRect.IsEmpty())
        return t;
    const std::int64_t x0 = tDark.Place().tColumns.nFirst, y0 = tDark.Place().tRows.nFirst;
    for (std::int64_t i = 0; i < tDark.Words(); ++i) {
        const Word nCounted = DarkBits::BitsOf(i, tRect.tColumns.nFirst - x0, tRect.tColumns.nLast + 1 - x0);
        WordCounters tColumns;
        for (std::int64_t y = tRect.tRows.nFirst; y <= tRect.tRows.nLast; ++y)
            if (const Word n = tDark.Row(y - y0)[i] & nCounted) {
                tColumns.Add(n);
                t.Rows()[static_cast<std::size_t>(y)] += std::popcount(n);
            }
        for (Word n = tColumns.Counted(); n != 0; n &= n - 1) {
            const int nBit = std::countr_zero(n);
            t.Columns()[static_cast<std::size_t>(x0 + i * DarkBits::nWordBits + nBit)] = tColumns.Count(nBit);
        }
    }
    return t;
} // NOLINT(clang-analyzer-unix.Malloc): the array has moved into the result

std::optional<int> FirstOfDenseRun(std::span<const double> adHistogram) {
    return DenseRun(adHistogram, 0, 1);
}

std::optional<int> LastOfDenseRun(std::span<const double> adHistogram) {
    return DenseRun(adHistogram, static_cast<int>(adHistogram.size()) - 1, -1);
}

} // namespace orvex

#include "geometry/dark_run.h"

#include "core/to_integer.h"
#include "image/dark_word.h"

#include <bit>

namespace orvex {
namespace {

using Word = DarkBits::Word;
static_assert(nRunLines == DarkBits::nWordBits);

using DarkRuns = std::array<Range, nRunLines>;

constexpr Range tNone = {0, -1};

Range DarkRunOfRow(PlaneView tGrey, std::int64_t y, Range tColumns, unsigned char ubLastDark) {
    Range t = tNone;
    for (std::int64_t x = tColumns.nFirst; x <= tColumns.nLast; x += DarkBits::nWordBits)
        if (const Word n = DarkWord(tGrey, y, x, tColumns.nLast, ubLastDark)) {
            if (t.IsEmpty())
                t.nFirst = x + std::countr_zero(n);
            t.nLast = x + DarkBits::nWordBits - 1 - std::countl_zero(n);
        }
    return t;
}

// Row by row over all columns: from the band's first row down until each has met its first dark pixel, and
// from its last row up.
void FindDarkRunsOfColumns(PlaneView tGrey, Range tColumns, Range tRows, unsigned char ubLastDark,
                           DarkRuns* pt) {
    const auto ForEachEnd = [&](bool bDown, auto&& Set) {
        Word nOpen = DarkBits::BitsOf(0, 0, tColumns.nLast - tColumns.nFirst + 1);
        for (std::int64_t i = tRows.nFirst; i <= tRows.nLast && nOpen != 0; ++i) {
            const std::int64_t y = bDown ? i : tRows.nLast + tRows.nFirst - i;
            const Word nDark = DarkWord(tGrey, y, tColumns.nFirst, tColumns.nLast, ubLastDark);
            for (Word n = nDark & nOpen; n != 0; n &= n - 1)
                Set((*pt)[static_cast<std::size_t>(std::countr_zero(n))], y);
            nOpen &= ~nDark;
        }
    };
    ForEachEnd(true, [](Range& t, std::int64_t y) { t.nFirst = y; });
    ForEachEnd(false, [](Range& t, std::int64_t y) { t.nLast = y; });
}

// Distance from a dark pixel to the edge between it and its outer neighbour, px.
double EdgeDistance(LineView tLine, int nLength, std::int64_t nDark, std::int64_t nNeighbour,
                    double dThreshold) {
    if (nNeighbour < 0 || nNeighbour >= nLength)
        return 0.0;
    const int nRise = tLine[nNeighbour] - tLine[nDark];
    return nRise == 0 ? 0.0 : (dThreshold - tLine[nDark]) / nRise;
}

double RunCentre(LineView tLine, int nLength, Range t, double dThreshold) {
    const double dLeading =
        static_cast<double>(t.nFirst) - EdgeDistance(tLine, nLength, t.nFirst, t.nFirst - 1, dThreshold);
    const double dTrailing =
        static_cast<double>(t.nLast) + EdgeDistance(tLine, nLength, t.nLast, t.nLast + 1, dThreshold);
    return (dLeading + dTrailing) * 0.5;
}

} // namespace

RunCentres FindDarkRunCentres(const GreyLines& t, std::int64_t nFirstLine, double dThreshold) {
    RunCentres ao;
    const int nThreshold = ToInt(dThreshold);
    if (nThreshold < 0)
        return ao;
    const auto ubLastDark = static_cast<unsigned char>(std::min(nThreshold, 255));
    const Range tLines = {nFirstLine, std::min(t.tLines.nLast, nFirstLine + nRunLines - 1)};
    DarkRuns at;
    at.fill(tNone);
    if (t.bColumns)
        FindDarkRunsOfColumns(t.tGrey, tLines, t.tInner, ubLastDark, &at);
    const int nLength = t.bColumns ? t.tGrey.tSize.nHeight : t.tGrey.tSize.nWidth;
    for (std::int64_t n = tLines.nFirst; n <= tLines.nLast; ++n) {
        const auto i = static_cast<std::size_t>(n - nFirstLine);
        const Range tRun = t.bColumns ? at[i] : DarkRunOfRow(t.tGrey, n, t.tInner, ubLastDark);
        if (!tRun.IsEmpty())
            ao[i] = RunCentre(t.bColumns ? t.tGrey.Column(n) : t.tGrey.Row(n), nLength, tRun, dThreshold);
    }
    return ao;
}

} // namespace orvex

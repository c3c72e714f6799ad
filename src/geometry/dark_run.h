#pragma once

#include "core/plane.h"

#include <array>
#include <optional>

namespace orvex {

// Neighbouring rows or columns of a grey plane, and the part of each that is looked at; all in the plane.
struct GreyLines {
    PlaneView tGrey;
    bool bColumns;
    Range tLines;
    Range tInner;
};

// Lines whose dark runs are found together.
constexpr int nRunLines = 64;
using RunCentres = std::array<std::optional<double>, nRunLines>;

// Sub-pixel centres of the dark runs of at most 64 lines, from nFirstLine on: the middle between the leading
// edge of the first and the trailing edge of the last pixel that is not brighter than the truncated
// threshold. Each edge is where the grey value between that pixel and its outer neighbour crosses the full
// threshold; the neighbour may lie outside tInner. Where the neighbour lies outside the picture or is equally
// bright, the edge stays at the whole pixel. Nothing for a line of which no pixel is dark.
RunCentres FindDarkRunCentres(const GreyLines& t, std::int64_t nFirstLine, double dThreshold);

// Takes every line and its centre, in order, until one is refused. Returns whether all were taken.
template <typename TakeLine>
bool ForEachDarkRunCentre(const GreyLines& t, double dThreshold, TakeLine&& Take) {
    for (std::int64_t nFirst = t.tLines.nFirst; nFirst <= t.tLines.nLast; nFirst += nRunLines) {
        const RunCentres ao = FindDarkRunCentres(t, nFirst, dThreshold);
        const std::int64_t nLast = std::min(t.tLines.nLast, nFirst + nRunLines - 1);
        for (std::int64_t n = nFirst; n <= nLast; ++n)
            if (!Take(n, ao[static_cast<std::size_t>(n - nFirst)]))
                return false;
    }
    return true;
}

} // namespace orvex

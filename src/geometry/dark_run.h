#pragma once

#include "core/plane.h"

#include <optional>

namespace orvex {

// A line of a grey plane, and how many pixels of it there are.
struct GreyLine {
    LineView tPixels;
    int nLength;
};

// Sub-pixel centre of the dark run within tRange, which lies on the line: the middle between the leading edge
// of the first and the trailing edge of the last pixel that is not brighter than the truncated threshold.
// Each edge is where the grey value between that pixel and its outer neighbour crosses the full threshold;
// the neighbour may lie outside tRange. Where the neighbour lies outside the picture or is equally bright,
// the edge stays at the whole pixel. Nothing if no pixel is dark.
std::optional<double> DarkRunCentre(GreyLine tLine, Range tRange, double dThreshold);

inline GreyLine GreyColumn(PlaneView t, std::int64_t x) {
    return {t.Column(x), t.tSize.nHeight};
}
inline GreyLine GreyRow(PlaneView t, std::int64_t y) {
    return {t.Row(y), t.tSize.nWidth};
}

} // namespace orvex

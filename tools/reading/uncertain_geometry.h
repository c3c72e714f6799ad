#pragma once

#include "basics/geometry.h"
#include "reading/robust_line.h"

namespace tools {

struct UncertainPoint {
    Point tPlace = {};
    double dVarianceX = 0, dCovariance = 0, dVarianceY = 0; // px^2
};

// Where a line along the rows meets one along the columns, with the covariance that both lines' give it.
UncertainPoint CrossingOf(const UncertainLine& tHorizontal, const UncertainLine& tVertical);

// Half of a side, by its place among all of them: as kSides, and of each first that at its first corner.
constexpr std::size_t HalfSide(std::size_t nSide, std::size_t nEnd) {
    return 2 * nSide + nEnd;
}

// The corner in which two half sides end.
template <typename Lines>
UncertainPoint CornerOf(std::size_t nCorner, const Lines& aHalves) {
    const std::size_t nRight = nCorner % 2, nLower = nCorner / 2;
    return CrossingOf(aHalves[HalfSide(1 + 2 * nLower, nRight)].tLine,
                      aHalves[HalfSide(2 * nRight, nLower)].tLine);
}

} // namespace tools

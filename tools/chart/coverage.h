#pragma once

#include <array>

namespace chart {

// A quantity that varies linearly over a pixel: its value at the pixel's centre and its change per pixel to
// the right and down.
struct Linear {
    double dValue;
    double dPerX;
    double dPerY;
};

// Share of a pixel's area, 0 to 1, on which all four quantities are at most 0. Exact but for rounding.
double AreaBelowZero(const std::array<Linear, 4>& aBounds);

} // namespace chart

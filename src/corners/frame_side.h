#pragma once

#include "core/plane.h"
#include "corners/corner_crossing.h"

namespace orvex {

// Where one side of the frame is searched near a corner.
struct SideSearch {
    bool bHorizontal;     // the top or bottom side, else the left or right one
    Range tBand;          // across the side: rows of a horizontal side, columns of a vertical one
    std::int64_t nStart;  // along the side: the frame's outer border at the corner
    std::int64_t nCentre; // along the side: the cross's centre
    bool bFromCentre;     // the corner lies behind the centre, the stripes ascend from the centre
    double dThreshold;    // grey threshold of the side's edges
};

enum class SideResult { Found, NoSide, NoStripe };

// Finds where the side leaves the other one, divides the span from there to the centre into ten stripes and
// measures the side's centre line in each.
SideResult MeasureSide(PlaneView tBinary, PlaneView tGrey, const SideSearch& tSearch, SidePoints* ptPoints);

} // namespace orvex

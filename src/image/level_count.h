#pragma once

#include "core/plane.h"

namespace orvex {

// How many pixels lie below a level, and how many up to it.
struct LevelCount {
    std::uint32_t nBelow;
    std::uint32_t nUpTo;
};

// Of the rectangle, which lies in the plane and is not empty.
LevelCount CountAtLevel(PlaneView tGrey, Rect tRect, unsigned char ubLevel);

} // namespace orvex

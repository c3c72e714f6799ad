#pragma once

#include "measuring/stage_view.h"
#include "pictures/picture.h"

namespace tools {

// Grey levels of the cross and its paper.
struct CrossLevels {
    double dDark;   // one in a hundred pixels is as dark; the cross takes four of them
    double dBright; // the middle one
};

// From the first search window, whether or not the cross is found in it. Nothing if the window misses the
// picture.
std::optional<CrossLevels> ReadCrossLevels(const Picture& tPicture, const Rectangle& tWindow);

} // namespace tools

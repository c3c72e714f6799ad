#pragma once

#include "pictures/picture.h"

#include <cstddef>

namespace tools {

// The samples on a line across.
struct LineAcross {
    const unsigned char* pGrey;
    std::ptrdiff_t nStep;

    int operator[](int n) const { return pGrey[n * nStep]; }
};

// A picture as a walk along one of its axes sees it: its lines across are numbered along the walk. Rows and
// columns are one case that way.
struct AxisView {
    const unsigned char* pGrey;
    int nAlong, nAcross; // sizes
    std::ptrdiff_t nAlongStep, nAcrossStep;

    bool HasLine(int n) const { return n >= 0 && n < nAlong; }
    LineAcross Line(int n) const { return {pGrey + n * nAlongStep, nAcrossStep}; }
};

// Along the rows for a line that runs from left to right, else along the columns. Looks at the picture.
inline AxisView ViewAlong(bool bHorizontal, const Picture& picture) {
    const unsigned char* const p = picture.aGrey.data();
    return bHorizontal ? AxisView{p, picture.nColumns, picture.nRows, 1, picture.nColumns}
                       : AxisView{p, picture.nRows, picture.nColumns, picture.nColumns, 1};
}

} // namespace tools

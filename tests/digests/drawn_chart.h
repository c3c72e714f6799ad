#pragma once

#include "support/plane.h"
#include "support/random.h"

namespace digests {

// Charts drawn in whole numbers, so that they are the same pixels on every machine; small, so that many are
// cheap.

// Where a chart lies in its picture, px, and its grey levels.
struct Layout {
    int nColumns, nRows;
    int nCentreX, nCentreY;
    int nHalfWidth, nHalfHeight; // of the frame
    int nThickness;              // of its sides
    int nPaper, nInk;
};

Layout AnyLayout(support::Random& t);
// The slave's picture is higher than wide and its cross lies below the row of its width, about where the
// master's does.
Layout LowLayout(support::Random& t, bool bMaster);

// Sides and bars lean and meet the pixels at any fraction; noise of any level, specks, shading, and now and
// then something that covers a part.
support::Plane AnyChart(support::Random& t, const Layout& tLayout);

void AddNoise(support::Random& t, support::Plane& tPlane, int nLevel);

} // namespace digests

#pragma once

#include "core/plane.h"

#include <optional>

namespace orvex {

// Corners of the window in which the centre cross is searched. The binarisation takes the end coordinates in,
// the histograms leave them out.
struct CentreWindow {
    std::int64_t x0, x1, y0, y1;

    constexpr Rect Closed() const { return {{x0, x1}, {y0, y1}}; }
    constexpr Rect HalfOpen() const { return {{x0, x1 - 1}, {y0, y1 - 1}}; }
};

// Window size over picture size.
struct WindowRatios {
    double dWidth;
    double dHeight;
};

// Displacement of the slave's window: whole pixels along one axis.
struct WindowShift {
    int nPixels;
    bool bAlongY;
};

// Centred on the picture. A shifted window is clamped along the axis of its shift.
CentreWindow CoarseWindow(PictureSize tSize, WindowRatios tRatios, std::optional<WindowShift> oShift);

// Centred on the coarse centre; may reach beyond the picture.
CentreWindow RefinedWindow(PictureSize tSize, WindowRatios tRatios, const unsigned short* pCenter);

// The window of one pass over one camera's picture, with the configured slave shift. pCenter is read on the
// refining pass only.
CentreWindow WindowOfPass(PictureSize tSize, WindowRatios tRatios, bool bMaster,
                          const unsigned short* pCenter, bool bRefine);

} // namespace orvex

#pragma once

#include "image/centre_window.h"
#include "image/dark_bits.h"

namespace orvex {

// The closed window's dark pixels, those below the threshold from its corner patches, without specks. Nothing
// without memory; pdThreshold is then left alone.
std::optional<DarkBits> BinariseWindow(PlaneView tGrey, CentreWindow tWindow, double dRatio,
                                       double* pdThreshold);

} // namespace orvex

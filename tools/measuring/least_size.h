#ifndef ORVEX_TOOLS_MEASURING_LEAST_SIZE_H
#define ORVEX_TOOLS_MEASURING_LEAST_SIZE_H

#include "measuring/camera.h"
#include "pictures/picture_size.h"

namespace tools {

// A smaller picture cannot hold the frame around a cross in its middle, wherever the frame is. Both cameras'
// pictures may have sizes of their own.
PictureSize LeastSizeOf(Camera tCamera);

} // namespace tools

#endif

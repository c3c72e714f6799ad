#ifndef ORVEX_TOOLS_MEASURING_FRAME_SEARCH_H
#define ORVEX_TOOLS_MEASURING_FRAME_SEARCH_H

#include "measuring/measurement.h"
#include "pictures/picture_size.h"

namespace tools {

// Where the library searches for the frame, px.
struct FrameSearch {
    int nMargin;            // taken to both sides of the edges that are met
    int nOffsetX, nOffsetY; // from the cross's centre to the search's start
};

FrameSearch FrameSearchOf(Camera tCamera);

// A smaller picture cannot hold the frame around a cross in its middle, wherever the frame is. Both cameras'
// pictures may have sizes of their own.
PictureSize LeastSizeOf(Camera tCamera);

} // namespace tools

#endif

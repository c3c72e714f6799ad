#include "measuring/least_size.h"

#include "measuring/parameters.h"

namespace tools {

PictureSize LeastSizeOf(Camera tCamera) {
    constexpr int kBorder = 3; // px that a search starts before the picture's border
    const FrameSearch tSearch = FrameSearchOf(tCamera, DefaultParameters());
    return {2 * (tSearch.nOffsetX + kBorder), 2 * (tSearch.nOffsetY + kBorder)};
}

} // namespace tools

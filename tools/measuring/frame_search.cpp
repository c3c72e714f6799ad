#include "measuring/frame_search.h"

#include "Orvex_Alignment_Stages.h"

namespace tools {

FrameSearch FrameSearchOf(Camera tCamera) {
    const DualCamAlignParam& t = *DualCamAlign_LoadParameters_ForAndroid();
    return tCamera == Camera::kMaster
               ? FrameSearch{t.nFrameMargin_Master, t.nFrameOffsetX_Master, t.nFrameOffsetY_Master}
               : FrameSearch{t.nFrameMargin_Slave, t.nFrameOffsetX_Slave, t.nFrameOffsetY_Slave};
}

PictureSize LeastSizeOf(Camera tCamera) {
    constexpr int nBorder = 3; // px that a search starts before the picture's border
    const FrameSearch t = FrameSearchOf(tCamera);
    return {2 * (t.nOffsetX + nBorder), 2 * (t.nOffsetY + nBorder)};
}

} // namespace tools

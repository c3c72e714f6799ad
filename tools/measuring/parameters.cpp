#include "measuring/parameters.h"

#include <utility>

namespace tools {

DualCamAlignParam DefaultParameters() {
    const DualCamAlignParam tBefore = m_tDualCamAlignParam;
    DualCamAlign_LoadParameters_ForAndroid();
    return std::exchange(m_tDualCamAlignParam, tBefore);
}

FrameSearch FrameSearchOf(Camera tCamera, const DualCamAlignParam& tParameters) {
    return tCamera == Camera::kMaster
               ? FrameSearch{tParameters.nFrameMargin_Master, tParameters.nFrameOffsetX_Master,
                             tParameters.nFrameOffsetY_Master}
               : FrameSearch{tParameters.nFrameMargin_Slave, tParameters.nFrameOffsetX_Slave,
                             tParameters.nFrameOffsetY_Slave};
}

PictureSize LeastSizeOf(Camera tCamera) {
    constexpr int kBorder = 3; // px that a search starts before the picture's border
    const FrameSearch tSearch = FrameSearchOf(tCamera, DefaultParameters());
    return {2 * (tSearch.nOffsetX + kBorder), 2 * (tSearch.nOffsetY + kBorder)};
}

} // namespace tools

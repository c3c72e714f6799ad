#include "measuring/parameters.h"

#include <utility>

namespace tools {

Parameters DefaultParameters() {
    const DualCamAlignParam tBefore = m_tDualCamAlignParam;
    DualCamAlign_LoadParameters_ForAndroid();
    return {std::exchange(m_tDualCamAlignParam, tBefore)};
}

ChartMeasures ChartMeasuresOf(const MeasuringSetup& setup) {
    const DualCamAlignParam& t = setup.tParameters.tBlock;
    return {static_cast<double>(t.nChartDistance), t.dChartHalfSpanX, t.dChartHalfSpanY, setup.dHorizontalBar,
            setup.dVerticalBar};
}

FrameSearch FrameSearchOf(Camera tCamera, const DualCamAlignParam& tParameters) {
    return tCamera == Camera::kMaster
               ? FrameSearch{tParameters.nFrameMargin_Master, tParameters.nFrameOffsetX_Master,
                             tParameters.nFrameOffsetY_Master}
               : FrameSearch{tParameters.nFrameMargin_Slave, tParameters.nFrameOffsetX_Slave,
                             tParameters.nFrameOffsetY_Slave};
}

} // namespace tools

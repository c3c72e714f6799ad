#include "Orvex_Alignment_Stages.h"

#include <algorithm>
#include <cmath>

namespace {

double Norm(const float* pf) {
    const double x = pf[0], y = pf[1];
    return std::sqrt(x * x + y * y);
}

// Scales about the picture centres.
double Transferred(double dScale, double dMaster, int nMasterSize, int nSlaveSize) {
    return dScale * (dMaster - nMasterSize * 0.5) + nSlaveSize * 0.5;
}

} // namespace

void DualCamAlign_CoordinateTransfer(float* pfSrc, float* pfDst, int nCount) {
    DualCamAlignData& t = m_tDualCamAlignData;
    std::copy_n(t.afFrameExtent_Master, 2, t.afFrameExtentCopy_Master);
    t.dFrameExtentNorm_Slave = Norm(t.afFrameExtent_Slave);
    t.dFrameExtentNorm_Master = Norm(t.afFrameExtentCopy_Master);
    t.dTransferScale = t.dFrameExtentNorm_Slave / t.dFrameExtentNorm_Master;
    if (pfSrc == nullptr || pfDst == nullptr)
        return;
    const DualCamAlignView& tView = m_pCMainView;
    const double dShift = m_tDualCamAlignParam.fSlaveShift;
    const bool bAlongY = m_tDualCamAlignParam.bShiftAlongY != 0;
    for (std::ptrdiff_t i = 0; i < nCount; ++i) {
        double x = Transferred(t.dTransferScale, pfSrc[2 * i], tView.nWidth_Master, tView.nWidth_Slave);
        double y = Transferred(t.dTransferScale, pfSrc[2 * i + 1], tView.nHeight_Master, tView.nHeight_Slave);
        (bAlongY ? y : x) += dShift;
        pfDst[2 * i] = static_cast<float>(x);
        pfDst[2 * i + 1] = static_cast<float>(y);
    }
}

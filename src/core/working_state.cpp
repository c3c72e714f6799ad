#include "Orvex_Alignment_Stages.h"

#include <algorithm>
#include <cstring>

DualCamAlignData m_tDualCamAlignData;
DualCamAlignView m_pCMainView;
DualCamAlignTested m_tTested;

double Rx, Ry, Rz;

void DualCamAlign_Initial() {
    // Bytes rather than fields, so that the padding is cleared too and two runs can be compared as bytes.
    std::memset(&m_tDualCamAlignData, 0, sizeof m_tDualCamAlignData);
    std::memset(&m_tTested, 0, sizeof m_tTested);
    constexpr std::uint32_t anOption[8] = {0, 1, 1, 1, 1, 0, 1, 0};
    std::copy_n(anOption, 8, m_pCMainView.anViewOption);
    m_tDualCamAlignData.bInitFlag0 = m_tDualCamAlignData.bInitFlag1 = 1;
    m_tDualCamAlignData.bInitFlag2 = m_tDualCamAlignData.bInitFlag3 = 1;
    m_tDualCamAlignParam.nParamState = 1;
    m_tDualCamAlignParam.nParamReserved0 = 0;
    m_tDualCamAlignParam.nParamReserved1 = 0;
}

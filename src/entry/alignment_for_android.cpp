#include "Orvex_Alignment_Stages.h"

#include "core/plane.h"
#include "entry/autofocus_record.h"

#include <cstdio>

using namespace orvex;

unsigned int Orvex_Alignment_ForAndroid(unsigned char* pMasterRGB, unsigned char* pSlaveRGB, int nMasterWidth,
                                        int nMasterHeight, int nSlaveWidth, int nSlaveHeight, double* pRx,
                                        double* pRy, double* pRz, unsigned char* pCalibData,
                                        _AFPROTECT* pAFRecord) {
    if (pMasterRGB == nullptr || pSlaveRGB == nullptr || pRx == nullptr || pRy == nullptr || pRz == nullptr ||
        pCalibData == nullptr || pAFRecord == nullptr)
        return ORVEX_ENTRY_NULL_POINTER;
    if (!IsUsableSize(nMasterWidth, nMasterHeight) || !IsUsableSize(nSlaveWidth, nSlaveHeight))
        return ORVEX_ENTRY_PICTURE_SIZE;
    m_pCMainView.nWidth_Master = nMasterWidth;
    m_pCMainView.nHeight_Master = nMasterHeight;
    m_pCMainView.nWidth_Slave = nSlaveWidth;
    m_pCMainView.nHeight_Slave = nSlaveHeight;
    DualCamAlign_LoadParameters_ForAndroid();
    DualCamAlign_Initial();
    std::puts("Alignment Processing.....");
    if (const unsigned int nStatus = DualCamAlign_Calculation(pMasterRGB, pSlaveRGB))
        return nStatus;
    if (const unsigned int nStatus = DualCamAlign_FirstResultJudgement())
        return nStatus;
    const DualCamAlignData& t = m_tDualCamAlignData;
    *pRx = t.dRx;
    *pRy = t.dRy;
    *pRz = t.dRz;
    *pAFRecord = MakeRecord(t.afCrossCenterCopy_Master, t.afCrossCenterCopy_Slave, pCalibData);
    return ORVEX_OK;
}

#include "Orvex_Alignment.h"

#include "entry/angle_range.h"
#include "entry/log.h"
#include "entry/record_file.h"

#include <android/log.h>
#include <cstdlib>
#include <initializer_list>

using namespace orvex;

int nWidth = 1728;
int nHeight = 972;
int nWidth_Slave = 1728;
int nHeight_Slave = 972;

unsigned int getAlign(unsigned char* pMasterRGB, unsigned char* pSlaveRGB, double* pRx, double* pRy,
                      double* pRz, unsigned char* pCalibData, unsigned short* pOutFile) {
    _AFPROTECT tRecord = {}; // stays zero if the measurement fails
    const unsigned int nStatus =
        Orvex_Alignment_ForAndroid(pMasterRGB, pSlaveRGB, nWidth, nHeight, nWidth_Slave, nHeight_Slave, pRx,
                                   pRy, pRz, pCalibData, &tRecord);
    if (nStatus != ORVEX_OK)
        __android_log_print(ANDROID_LOG_INFO, szLogTag, "\nError code : %d\n", static_cast<int>(nStatus));
    else
        __android_log_print(ANDROID_LOG_INFO, szLogTag, "\nRx = %3.6f\nRy = %3.6f\nRz = %3.6f\n", *pRx, *pRy,
                            *pRz);
    if (pCalibData != nullptr) // the key is derived from it
        WriteRecordFile(tRecord, pCalibData, reinterpret_cast<unsigned char*>(pOutFile));
    std::free(pMasterRGB);
    if (pSlaveRGB != pMasterRGB) // one picture measured against itself
        std::free(pSlaveRGB);
    if (nStatus != ORVEX_OK)
        return nStatus;
    for (double* const pAngle : {pRx, pRy, pRz})
        *pAngle = RescaledAngle(*pAngle);
    return IsOutOfRange(*pRx) || IsOutOfRange(*pRy) || IsOutOfRange(*pRz) ? ORVEX_ANGLE_OUT_OF_RANGE
                                                                          : ORVEX_OK;
}

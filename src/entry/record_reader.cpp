#include "Orvex_Alignment.h"

#include "core/to_integer.h"
#include "entry/autofocus_record.h"
#include "entry/record_container.h"
#include "entry/record_key.h"

#include <cstddef>
#include <cstring>

using namespace orvex;

namespace {

constexpr int nFloatsAt = offsetof(_AFPROTECT, fAFSlope1) - nVersionBytes;
constexpr int nChecksumAt = offsetof(_AFPROTECT, ubCheckSum) - nVersionBytes;

// Decrypts what follows the version bytes. False for anything that is no whole record under this key.
bool DecryptRecord(const unsigned char* pCalibData, const unsigned char* pInFile, int nInLen,
                   unsigned char* pPlain, int* pnPlain) {
    return nInLen > nVersionBytes && Orvex_GenerateKey(pCalibData, key_3) &&
           OAES_Decrypt(key_3, nRecordKeyBytes, pInFile + nVersionBytes, nInLen - nVersionBytes, pPlain,
                        pnPlain) &&
           *pnPlain >= nPlainBytes;
}

// Compared as truncated integers: differences below one unit are tolerated on purpose.
bool SameFloats(const unsigned char* pPlain, const AutofocusFloats& tExpected) {
    AutofocusFloats tStored;
    std::memcpy(&tStored, pPlain + nFloatsAt, sizeof tStored);
    return ToInt(tStored.fSlope1) == ToInt(tExpected.fSlope1) &&
           ToInt(tStored.fOffset1) == ToInt(tExpected.fOffset1) &&
           ToInt(tStored.fSlope2) == ToInt(tExpected.fSlope2) &&
           ToInt(tStored.fOffset2) == ToInt(tExpected.fOffset2);
}

unsigned int ReadRecord(const unsigned char* pCalibData, const unsigned char* pInFile, int nInLen,
                        unsigned char* pOutRecord, int* pOutLen) {
    unsigned char aubPlain[nMostPlainBytes] = {};
    int nPlain = nMostPlainBytes;
    if (!DecryptRecord(pCalibData, pInFile, nInLen, aubPlain, &nPlain))
        return ORVEX_RECORD_NOT_DECRYPTED;
    std::memmove(pOutRecord, pInFile, nVersionBytes); // a host may decrypt in place
    std::memcpy(pOutRecord + nVersionBytes, aubPlain, static_cast<std::size_t>(nPlain));
    *pOutLen = nPlain + nVersionBytes;
    if (RecordChecksum(aubPlain) != aubPlain[nChecksumAt])
        return ORVEX_RECORD_CHECKSUM;
    return SameFloats(aubPlain, AutofocusFloatsOf(pCalibData)) ? ORVEX_OK : ORVEX_RECORD_OTHER_MODULE;
}

} // namespace

int Orvex_SpecialAFDataTransform(unsigned char* pCalibData, int, unsigned char* pInFile, int nInLen,
                                 unsigned char* pOutRecord, int* pOutLen, int* pStatus) {
    const bool bPointers = pCalibData != nullptr && pInFile != nullptr && pOutRecord != nullptr &&
                           pOutLen != nullptr && pStatus != nullptr;
    const unsigned int nStatus = bPointers ? ReadRecord(pCalibData, pInFile, nInLen, pOutRecord, pOutLen)
                                           : static_cast<unsigned int>(ORVEX_RECORD_NOT_DECRYPTED);
    if (pStatus != nullptr)
        *pStatus = static_cast<int>(nStatus);
    return nStatus == ORVEX_OK ? 1 : 0;
}

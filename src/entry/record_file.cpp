#include "entry/record_file.h"

#include "entry/autofocus_record.h"
#include "entry/log.h"
#include "entry/record_container.h"
#include "entry/record_key.h"

#include <android/log.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace orvex {
namespace {

constexpr char szRecordFile[] = "/sdcard/AFProtect.txt";

void Warn(const char* szWhy) {
    __android_log_print(ANDROID_LOG_WARN, szLogTag, "%s was not written: %s", szRecordFile, szWhy);
}

// Version bytes, then the encrypted rest; returns the file's length, 0 if the record could not be encrypted.
int EncryptRecord(const _AFPROTECT& tRecord, const unsigned char* pCalibData, unsigned char* pFile) {
    const auto* const pRecord = reinterpret_cast<const unsigned char*>(&tRecord);
    int nContainer = ORVEX_OUT_FILE_CAPACITY - nVersionBytes;
    if (!Orvex_GenerateKey(pCalibData, key_3) ||
        !OAES_Encrypt(key_3, nRecordKeyBytes, pRecord + nVersionBytes, nPlainBytes, pFile + nVersionBytes,
                      &nContainer))
        return 0;
    std::memcpy(pFile, pRecord, nVersionBytes);
    return nVersionBytes + nContainer;
}

// False, with the reason in errno, unless all bytes are in the file.
bool WriteFile(const unsigned char* pBytes, int nBytes) {
    std::FILE* const pFile = std::fopen(szRecordFile, "w+");
    if (pFile == nullptr)
        return false;
    const auto nSize = static_cast<std::size_t>(nBytes);
    const bool bTaken = std::fwrite(pBytes, 1, nSize, pFile) == nSize;
    const bool bWritten = std::fclose(pFile) == 0; // the bytes reach the disk here
    return bTaken && bWritten;
}

} // namespace

void WriteRecordFile(const _AFPROTECT& tRecord, const unsigned char* pCalibData, unsigned char* pOutFile) {
    unsigned char aubFile[ORVEX_OUT_FILE_CAPACITY];
    const int nFile = EncryptRecord(tRecord, pCalibData, aubFile);
    if (pOutFile != nullptr)
        std::memcpy(pOutFile, aubFile, static_cast<std::size_t>(nFile));
    if (!WriteFile(aubFile, nFile))
        Warn(std::strerror(errno));
    else if (nFile == 0)
        Warn("the record could not be encrypted");
}

} // namespace orvex

#include "measuring/record_reading.h"

#include "Orvex_Alignment.h"
#include "basics/files.h"
#include "basics/tool_error.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <numeric>
#include <utility>

namespace tools {
namespace {

static_assert(kRecordFileBytes == 2 + 32 + (sizeof(_AFPROTECT) - 2 + 15) / 16 * 16);

constexpr std::size_t kLimit = 1 << 16; // far more than any container holds
constexpr std::size_t kMostRecordBytes = 622;

unsigned char* Bytes(std::string& str) {
    return reinterpret_cast<unsigned char*>(str.data());
}

std::string HeaderOf(const std::string& strBytes) {
    return strBytes.substr(std::min(kHeaderAt, strBytes.size()), kMeasuredHeader.size());
}

constexpr std::pair<int, RecordAnswer> kAnswers[] = {
    {ORVEX_OK, RecordAnswer::kAccepted},
    {ORVEX_RECORD_NOT_DECRYPTED, RecordAnswer::kNotDecrypted},
    {ORVEX_RECORD_CHECKSUM, RecordAnswer::kWrongChecksum},
    {ORVEX_RECORD_OTHER_MODULE, RecordAnswer::kOtherModule},
};

RecordAnswer AnswerOf(int nStatus) {
    const auto p = std::ranges::find(kAnswers, nStatus, &std::pair<int, RecordAnswer>::first);
    return p != std::end(kAnswers) ? p->second : RecordAnswer::kRefused;
}

RecordFields FieldsOf(const std::string& strRecord) {
    std::array<unsigned char, sizeof(_AFPROTECT)> aubBytes;
    std::copy_n(strRecord.begin(), aubBytes.size(), aubBytes.begin());
    const auto tRecord = std::bit_cast<_AFPROTECT>(aubBytes);
    const int nSum = std::accumulate(aubBytes.begin() + offsetof(_AFPROTECT, swShiftX),
                                     aubBytes.begin() + offsetof(_AFPROTECT, ubCheckSum), 0);
    return {.tVersion = {tRecord.ubVersionMajor, tRecord.ubVersionMinor},
            .nShiftX = tRecord.swShiftX,
            .nShiftY = tRecord.swShiftY,
            .dSlope1 = tRecord.fAFSlope1,
            .dOffset1 = tRecord.fAFOffset1,
            .dSlope2 = tRecord.fAFSlope2,
            .dOffset2 = tRecord.fAFOffset2,
            .nCheckSum = tRecord.ubCheckSum,
            .nSumOfBytes = nSum % 256,
            .strReserved = {std::begin(tRecord.aubReserved), std::end(tRecord.aubReserved)},
            .strFurther = strRecord.substr(aubBytes.size()),
            .bAllZero = std::ranges::all_of(aubBytes, [](unsigned char ub) { return ub == 0; })};
}

} // namespace

RecordVersion WrittenVersion() {
    return {AF_ProtectVersion[0], AF_ProtectVersion[1]};
}

bool IsRecordFile(const std::string& strBytes) {
    return strBytes.size() > kHeaderAt &&
           std::string_view(strBytes).substr(kHeaderAt).starts_with(kMeasuredHeader.substr(0, 4));
}

RecordReading ReadRecord(const std::string& strFile, const std::string& strCalibration) {
    std::string strBytes = ReadFile(strFile, kLimit), strCalibrationCopy = strCalibration;
    if (strBytes.empty())
        throw ToolError(strFile, "is empty", "Copy the record file again, or measure the module again");
    std::string strRecord(kMostRecordBytes, '\0');
    int nRecord = 0, nStatus = 0;
    Orvex_SpecialAFDataTransform(Bytes(strCalibrationCopy), static_cast<int>(strCalibrationCopy.size()),
                                 Bytes(strBytes), static_cast<int>(strBytes.size()), Bytes(strRecord),
                                 &nRecord, &nStatus);
    RecordReading tReading = {strFile,
                              strBytes.size(),
                              IsRecordFile(strBytes),
                              HeaderOf(strBytes),
                              static_cast<unsigned int>(nStatus),
                              AnswerOf(nStatus),
                              {}};
    if (tReading.tAnswer != RecordAnswer::kNotDecrypted)
        tReading.oRecord = FieldsOf(strRecord.substr(0, static_cast<std::size_t>(nRecord)));
    return tReading;
}

} // namespace tools

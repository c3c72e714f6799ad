#include "measuring/record_reading.h"

#include "basics/files.h"
#include "basics/tool_error.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tools {
namespace {

constexpr std::size_t nLimit = 1 << 16; // far more than any container holds
constexpr std::size_t nMostRecordBytes = 622;

unsigned char* Bytes(std::string& str) {
    return reinterpret_cast<unsigned char*>(str.data());
}

std::string HeaderOf(const std::string& strBytes) {
    return strBytes.substr(std::min(kHeaderAt, strBytes.size()), kMeasuredHeader.size());
}

} // namespace

bool IsRecordFile(const std::string& strBytes) {
    return strBytes.size() > kHeaderAt &&
           std::string_view(strBytes).substr(kHeaderAt).starts_with(kMeasuredHeader.substr(0, 4));
}

RecordReading ReadRecord(const std::string& strFile, const std::string& strCalibration) {
    std::string strBytes = ReadFile(strFile, nLimit), strCalibrationCopy = strCalibration;
    if (strBytes.empty())
        throw ToolError(strFile, "is empty", "Copy the record file again, or measure the module again");
    std::string strRecord(nMostRecordBytes, '\0');
    int nRecord = 0, nStatus = 0;
    Orvex_SpecialAFDataTransform(Bytes(strCalibrationCopy), static_cast<int>(strCalibrationCopy.size()),
                                 Bytes(strBytes), static_cast<int>(strBytes.size()), Bytes(strRecord),
                                 &nRecord, &nStatus);
    RecordReading t = {strFile,
                       strBytes.size(),
                       IsRecordFile(strBytes),
                       HeaderOf(strBytes),
                       static_cast<unsigned int>(nStatus),
                       {},
                       {}};
    if (t.nStatus != ORVEX_RECORD_NOT_DECRYPTED) {
        std::memcpy(&t.oRecord.emplace(), strRecord.data(), sizeof(_AFPROTECT));
        t.strFurther =
            strRecord.substr(sizeof(_AFPROTECT), static_cast<std::size_t>(nRecord) - sizeof(_AFPROTECT));
    }
    return t;
}

} // namespace tools

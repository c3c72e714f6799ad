#include "record/judgement.h"

#include "basics/text_table.h"
#include "measuring/status_words.h"

#include <algorithm>

namespace tools {
namespace {

constexpr char kChecksum[] = "ORVEX_RECORD_CHECKSUM", kOtherModule[] = "ORVEX_RECORD_OTHER_MODULE";

constexpr char kOfFailure[] =
    "decrypted, but it is all zeros: the record that a measurement leaves when it fails";

constexpr char kCheckBoth[] = "Name the calibration memory of the module that was measured; copy the record "
                              "file again, as binary and not as text";

RecordJudgement NotDecrypted(const RecordReading& reading) {
    if (!reading.bRecordFile)
        return {
            false, "ORVEX_RECORD_NOT_DECRYPTED",
            "the file does not begin as a record file does: it is something else, or its start is damaged",
            "Name the AFProtect.txt of the phone, or the file that measure --record wrote"};
    const std::string strSize = reading.nFileBytes == kRecordFileBytes
                                    ? ""
                                    : "; it holds " + std::to_string(reading.nFileBytes) +
                                          " bytes, a whole one " + std::to_string(kRecordFileBytes);
    return {false, "ORVEX_RECORD_NOT_DECRYPTED",
            "a record file that does not decrypt with this calibration: another module's, or damaged" +
                strSize,
            kCheckBoth};
}

// The container has no seal of its own: about one wrong key in 256 decrypts it, to noise.
bool IsNoise(const RecordReading& reading) {
    const RecordFields& tRecord = *reading.oRecord;
    return !tRecord.strFurther.empty() || tRecord.strReserved.find_first_not_of('\0') != std::string::npos;
}

RecordJudgement Noise(const char* szStatusName) {
    return {false, szStatusName,
            "decrypted to something that is no record: the calibration is another module's, or the file is "
            "damaged",
            kCheckBoth};
}

RecordJudgement WrongChecksum(const RecordReading& tReading) {
    if (IsNoise(tReading))
        return Noise(kChecksum);
    const RecordFields& tRecord = *tReading.oRecord;
    return {false, kChecksum,
            "decrypted, but its checksum is " + std::to_string(tRecord.nCheckSum) + " and its bytes sum to " +
                std::to_string(tRecord.nSumOfBytes) + ": the record is damaged",
            "Copy the record file again, or measure the module again"};
}

RecordJudgement OtherModule(const RecordReading& reading) {
    if (reading.oRecord->bAllZero)
        return {false, kOtherModule, kOfFailure, "Measure the module again and mend what measure tells"};
    if (IsNoise(reading))
        return Noise(kOtherModule);
    return {false, kOtherModule,
            "decrypted, and its checksum is right, but its focus lines are not those of this calibration: "
            "they belong to another module, or the record is damaged",
            "Check which module the calibration memory was read from; copy the record file again, or measure "
            "that module again"};
}

// The reader takes zeros for the focus lines of a memory that holds none, as one never written.
RecordJudgement FailedUnderBlankMemory() {
    return {false, "ORVEX_OK",
            std::string(kOfFailure) + "; the reader took it, because the focus lines of the calibration "
                                      "memory are zero too, as in a blank one",
            "Read the calibration memory out of the module again, then measure the module again"};
}

std::string VersionText(RecordVersion tVersion) {
    return std::to_string(tVersion.nMajor) + "." + std::to_string(tVersion.nMinor);
}

std::string OfVersion(RecordVersion tVersion) {
    return tVersion == WrittenVersion() ? ""
                                        : "the version, which is not encrypted, is " + VersionText(tVersion) +
                                              "; this library writes " + VersionText(WrittenVersion()) + ".";
}

// The reader takes some headers that no measurement writes.
std::string OfHeader(const std::string& strHeader) {
    std::vector<std::string> aPlaces;
    for (std::size_t i = 0; i < std::min(strHeader.size(), kMeasuredHeader.size()); ++i)
        if (strHeader[i] != kMeasuredHeader[i])
            aPlaces.push_back(std::to_string(kHeaderAt + i));
    return aPlaces.empty() ? ""
                           : "the container's header is not as a measurement writes it; it differs in the "
                             "file's bytes, counted from 0: " +
                                 Listed(aPlaces) + ".";
}

std::string OfReserved(const std::string& strReserved) {
    const auto nSet = strReserved.size() - static_cast<std::size_t>(std::ranges::count(strReserved, '\0'));
    return nSet == 0 ? ""
                     : std::to_string(nSet) + " of the " + std::to_string(strReserved.size()) +
                           " reserved bytes, which the checksum does not cover, are not zero.";
}

std::string OfFurther(const std::string& strFurther) {
    return strFurther.empty() ? ""
                              : std::to_string(strFurther.size()) +
                                    " bytes follow the known fields; a measurement writes none there.";
}

// What of a decrypted record is not as a measurement writes it and no check of the library's reader covers:
// version, container header, reserved bytes and what follows the known fields.
std::vector<std::string> WarningsOf(const RecordReading& tReading) {
    if (!tReading.oRecord)
        return {};
    const RecordFields& tRecord = *tReading.oRecord;
    std::vector<std::string> a = {OfVersion(tRecord.tVersion), OfHeader(tReading.strHeader),
                                  OfReserved(tRecord.strReserved), OfFurther(tRecord.strFurther)};
    std::erase(a, "");
    return a;
}

// Says no more than the reader checks: one sum over 20 bytes, and the focus lines as whole numbers.
RecordJudgement Accepted(const RecordReading& reading) {
    if (reading.oRecord->bAllZero)
        return FailedUnderBlankMemory();
    const std::string strChecked = "decrypted, its checksum is right, and its focus lines are, as whole "
                                   "numbers, those of this calibration";
    std::vector<std::string> aWarnings = WarningsOf(reading);
    if (aWarnings.empty())
        return {true, "ORVEX_OK", strChecked, ""};
    return {true, "ORVEX_OK",
            strChecked + "; but what no check covers is not as a measurement writes it: the file is damaged, "
                         "or another version of the library wrote it (see the warnings)",
            "Copy the record file again, or measure the module again", std::move(aWarnings)};
}

} // namespace

RecordJudgement JudgementOf(const RecordReading& tReading) {
    switch (tReading.tAnswer) {
    case RecordAnswer::kAccepted:
        return Accepted(tReading);
    case RecordAnswer::kNotDecrypted:
        return NotDecrypted(tReading);
    case RecordAnswer::kWrongChecksum:
        return WrongChecksum(tReading);
    case RecordAnswer::kOtherModule:
        return OtherModule(tReading);
    case RecordAnswer::kRefused:
        break;
    }
    const StatusWords& tStatus = DescribeStatus(tReading.nStatus);
    return {false, tStatus.szName, tStatus.szFound, tStatus.szTry};
}

} // namespace tools

#include "record/judgement.h"

#include "measuring/status_words.h"
#include "record/warnings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <numeric>

namespace tools {
namespace {

using RecordBytes = std::array<unsigned char, sizeof(_AFPROTECT)>;

// A failed measurement leaves such a record.
bool IsAllZero(const _AFPROTECT& t) {
    return std::bit_cast<RecordBytes>(t) == RecordBytes{};
}

constexpr char szChecksum[] = "ORVEX_RECORD_CHECKSUM", szOtherModule[] = "ORVEX_RECORD_OTHER_MODULE";

constexpr char szOfFailure[] =
    "decrypted, but it is all zeros: the record that a measurement leaves when it fails";

constexpr char szCheckBoth[] = "Name the calibration memory of the module that was measured; copy the record "
                               "file again, as binary and not as text";

RecordJudgement NotDecrypted(const RecordReading& t) {
    if (!t.bRecordFile)
        return {
            kRefused, "ORVEX_RECORD_NOT_DECRYPTED",
            "the file does not begin as a record file does: it is something else, or its start is damaged",
            "Name the AFProtect.txt of the phone, or the file that measure --record wrote"};
    const std::string strSize = t.nFileBytes == kRecordFileBytes
                                    ? ""
                                    : "; it holds " + std::to_string(t.nFileBytes) + " bytes, a whole one " +
                                          std::to_string(kRecordFileBytes);
    return {kRefused, "ORVEX_RECORD_NOT_DECRYPTED",
            "a record file that does not decrypt with this calibration: another module's, or damaged" +
                strSize,
            szCheckBoth};
}

// The container has no seal of its own: about one wrong key in 256 decrypts it, to noise.
bool IsNoise(const RecordReading& t) {
    return !t.strFurther.empty() || std::ranges::any_of(t.oRecord->aubReserved, [](int n) { return n != 0; });
}

RecordJudgement Noise(const char* szStatusName) {
    return {kRefused, szStatusName,
            "decrypted to something that is no record: the calibration is another module's, or the file is "
            "damaged",
            szCheckBoth};
}

RecordJudgement WrongChecksum(const RecordReading& tReading) {
    if (IsNoise(tReading))
        return Noise(szChecksum);
    const _AFPROTECT& t = *tReading.oRecord;
    return {kRefused, szChecksum,
            "decrypted, but its checksum is " + std::to_string(t.ubCheckSum) + " and its bytes sum to " +
                std::to_string(SumOf(t)) + ": the record is damaged",
            "Copy the record file again, or measure the module again"};
}

RecordJudgement OtherModule(const RecordReading& t) {
    if (IsAllZero(*t.oRecord))
        return {kRefused, szOtherModule, szOfFailure, "Measure the module again and mend what measure tells"};
    if (IsNoise(t))
        return Noise(szOtherModule);
    return {kRefused, szOtherModule,
            "decrypted, and its checksum is right, but its focus lines are not those of this calibration: "
            "they belong to another module, or the record is damaged",
            "Check which module the calibration memory was read from; copy the record file again, or measure "
            "that module again"};
}

// The reader takes zeros for the focus lines of a memory that holds none, as one never written.
RecordJudgement FailedUnderBlankMemory() {
    return {kRefused, "ORVEX_OK",
            std::string(szOfFailure) + "; the reader took it, because the focus lines of the calibration "
                                       "memory are zero too, as in a blank one",
            "Read the calibration memory out of the module again, then measure the module again"};
}

// Says no more than the reader checks: one sum over 20 bytes, and the focus lines as whole numbers.
RecordJudgement Accepted(const RecordReading& t) {
    if (IsAllZero(*t.oRecord))
        return FailedUnderBlankMemory();
    const std::string strChecked = "decrypted, its checksum is right, and its focus lines are, as whole "
                                   "numbers, those of this calibration";
    std::vector<std::string> aWarnings = WarningsOf(t);
    if (aWarnings.empty())
        return {kAccepted, "ORVEX_OK", strChecked, ""};
    return {kAccepted, "ORVEX_OK",
            strChecked +
                "; but what no check covers is not as a measurement writes it: the file is damaged, or "
                "another version of the library wrote it (see the warnings)",
            "Copy the record file again, or measure the module again", std::move(aWarnings)};
}

} // namespace

unsigned int SumOf(const _AFPROTECT& t) {
    const auto aub = std::bit_cast<RecordBytes>(t);
    return std::accumulate(aub.begin() + offsetof(_AFPROTECT, swShiftX),
                           aub.begin() + offsetof(_AFPROTECT, ubCheckSum), 0u) %
           256;
}

RecordJudgement JudgementOf(const RecordReading& t) {
    switch (t.nStatus) {
    case ORVEX_OK:
        return Accepted(t);
    case ORVEX_RECORD_NOT_DECRYPTED:
        return NotDecrypted(t);
    case ORVEX_RECORD_CHECKSUM:
        return WrongChecksum(t);
    case ORVEX_RECORD_OTHER_MODULE:
        return OtherModule(t);
    default:
        return {kRefused, WordsOf(t.nStatus).szName, WordsOf(t.nStatus).szFound, WordsOf(t.nStatus).szTry};
    }
}

} // namespace tools

#include "record_judgement.h"

#include "status_words.h"

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

RecordJudgement WrongChecksum(const RecordReading& tReading) {
    if (IsNoise(tReading))
        return {
            kRefused, "ORVEX_RECORD_CHECKSUM",
            "decrypted to something that is no record: the calibration is another module's, or the file is "
            "damaged",
            szCheckBoth};
    const _AFPROTECT& t = *tReading.oRecord;
    return {kRefused, "ORVEX_RECORD_CHECKSUM",
            "decrypted, but its checksum is " + std::to_string(t.ubCheckSum) + " and its bytes sum to " +
                std::to_string(SumOf(t)) + ": the record is damaged",
            "Copy the record file again, or measure the module again"};
}

RecordJudgement OtherModule(const _AFPROTECT& t) {
    if (IsAllZero(t))
        return {kRefused, "ORVEX_RECORD_OTHER_MODULE",
                "decrypted, but it is all zeros: the record that a measurement leaves when it fails",
                "Measure the module again and mend what measure tells"};
    return {kRefused, "ORVEX_RECORD_OTHER_MODULE",
            "decrypted and undamaged, but its focus lines are not those of this calibration: they belong to "
            "another module",
            "Check which module the calibration memory was read from, and measure that module again"};
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
        return {kAccepted, "ORVEX_OK", "decrypted and undamaged, and it belongs to this module", ""};
    case ORVEX_RECORD_NOT_DECRYPTED:
        return NotDecrypted(t);
    case ORVEX_RECORD_CHECKSUM:
        return WrongChecksum(t);
    case ORVEX_RECORD_OTHER_MODULE:
        return OtherModule(*t.oRecord);
    default:
        return {kRefused, WordsOf(t.nStatus).szName, WordsOf(t.nStatus).szFound, WordsOf(t.nStatus).szTry};
    }
}

} // namespace tools

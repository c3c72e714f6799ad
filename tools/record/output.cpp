#include "record/output.h"

#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "measuring/quantities.h"
#include "measuring/status_words.h"
#include "measuring/versions.h"

#include <iterator>

namespace tools {
namespace {

constexpr int nFloatDecimals = 4;

Quantity Field(const char* szKey, const char* szLabel, const char* szUnit, int nDecimals, double dValue) {
    return {szKey, szLabel, szUnit, nDecimals, dValue};
}

// In the record's order. A focus line gives the lens code at a position: offset + slope x position.
Quantities FieldsOf(const _AFPROTECT& t) {
    return {Field("version_major", "version, major", "", 0, t.ubVersionMajor),
            Field("version_minor", "version, minor", "", 0, t.ubVersionMinor),
            Field("shift_x_px", "shift x, slave's cross minus master's", "px", 0, t.swShiftX),
            Field("shift_y_px", "shift y, slave's cross minus master's", "px", 0, t.swShiftY),
            Field("focus_line_1/slope_codes_per_position", "focus line 1, slope", "lens codes per position",
                  nFloatDecimals, t.fAFSlope1),
            Field("focus_line_1/offset_codes", "focus line 1, offset", "lens codes", nFloatDecimals,
                  t.fAFOffset1),
            Field("focus_line_2/slope_codes_per_position", "focus line 2, slope", "lens codes per position",
                  nFloatDecimals, t.fAFSlope2),
            Field("focus_line_2/offset_codes", "focus line 2, offset", "lens codes", nFloatDecimals,
                  t.fAFOffset2),
            Field("checksum", "checksum", "", 0, t.ubCheckSum),
            Field("sum_of_bytes", "sum of the bytes it covers, modulo 256", "", 0, SumOf(t))};
}

std::string Hex(const std::string& str) {
    constexpr char szDigits[] = "0123456789abcdef";
    std::string strHex;
    for (const char c : str) {
        const auto n = static_cast<unsigned char>(c);
        strHex += {szDigits[n / 16], szDigits[n % 16]};
    }
    return strHex;
}

std::string ReservedOf(const _AFPROTECT& t) {
    return {std::begin(t.aubReserved), std::end(t.aubReserved)};
}

// Bytes without meaning: worth a line only where one is set.
std::string BytesText(const char* szLabel, const std::string& str) {
    const std::string strHead = std::string("  ") + szLabel + ", " + std::to_string(str.size()) + " bytes";
    if (str.find_first_not_of('\0') == str.npos)
        return str.empty() ? "" : strHead + ": all zero\n";
    return strHead + ", hexadecimal:\n    " + Hex(str) + "\n";
}

std::string FieldsText(const RecordReading& t, ExitCode tExit) {
    if (!t.oRecord)
        return "";
    std::vector<std::vector<std::string>> aRows;
    for (const Quantity& tField : FieldsOf(*t.oRecord))
        aRows.push_back({*tField.szUnit != '\0' ? LabelWithUnit(tField) : tField.strLabel, Shown(tField)});
    const char* const szHeading =
        tExit == kAccepted ? "\nThe record\n" : "\nThe record as decrypted; do not use these values\n";
    return szHeading + Table(aRows) + BytesText("reserved", ReservedOf(*t.oRecord)) +
           BytesText("behind the known fields", t.strFurther);
}

std::string Line(const std::string& strLabel, const std::string& strText) {
    return strText.empty() ? "" : "  " + strLabel + Wrapped(strText, strLabel.size() + 2) + "\n";
}

const char* WordOf(const RecordJudgement& t) {
    return t.tExit == kAccepted ? "accepted" : "refused";
}

Json FieldsJson(const RecordReading& t) {
    if (!t.oRecord)
        return nullptr;
    Json tJson = JsonOf(FieldsOf(*t.oRecord));
    tJson["reserved_hex"] = Hex(ReservedOf(*t.oRecord));
    tJson["further_hex"] = Hex(t.strFurther);
    return tJson;
}

} // namespace

std::string TextOf(const RecordReport& t) {
    const RecordReading& tReading = t.tReading;
    const RecordJudgement& tJudgement = t.tJudgement;
    const std::string strVerdict = tJudgement.tExit == kAccepted ? "ACCEPTED: " : "REFUSED: ";
    return Wrapped(strVerdict + tJudgement.strFound + ".", 0) + "\n\n" +
           Line("Status       ", HexOf(tReading.nStatus) + " " + tJudgement.szStatusName) +
           Line("Try          ", tJudgement.szTry) + "  Record       " + Harmless(tReading.strFile) + ", " +
           std::to_string(tReading.nFileBytes) + " bytes\n" + "  Calibration  " +
           Harmless(t.strCalibrationFile) + "\n" + List("Warnings", tJudgement.aWarnings) +
           FieldsText(tReading, tJudgement.tExit);
}

std::string JsonTextOf(const RecordReport& t) {
    const RecordJudgement& tJudgement = t.tJudgement;
    return TextOf(Json{{"verdict", WordOf(tJudgement)},
                       {"exit_code", static_cast<int>(tJudgement.tExit)},
                       {"exit_meaning", MeaningOf(tJudgement.tExit, kRecordExits)},
                       {"status",
                        {{"code", t.tReading.nStatus},
                         {"hex", HexOf(t.tReading.nStatus)},
                         {"name", tJudgement.szStatusName},
                         {"words", tJudgement.strFound},
                         {"try", tJudgement.szTry}}},
                       {"warnings", tJudgement.aWarnings},
                       {"record", FieldsJson(t.tReading)},
                       {"file", t.tReading.strFile},
                       {"file_bytes", t.tReading.nFileBytes},
                       {"calibration_file", t.strCalibrationFile},
                       {"library_version", LibraryVersion()},
                       {"tool_version", kToolVersion}});
}

} // namespace tools

#include "record/output.h"

#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "measuring/quantities.h"
#include "measuring/status_words.h"
#include "measuring/versions.h"

#include <fmt/format.h>

namespace tools {
namespace {

constexpr int kFloatDecimals = 4;

// In the record's order.
Quantities FieldsOf(const RecordFields& tRecord) {
    return {
        {"version_major", "version, major", "", 0, tRecord.tVersion.nMajor},
        {"version_minor", "version, minor", "", 0, tRecord.tVersion.nMinor},
        {"shift_x_px", "shift x, slave's cross minus master's", "px", 0, tRecord.nShiftX},
        {"shift_y_px", "shift y, slave's cross minus master's", "px", 0, tRecord.nShiftY},
        {"focus_line_1/slope_codes_per_position", "focus line 1, slope", "lens codes per position",
         kFloatDecimals, tRecord.dSlope1},
        {"focus_line_1/offset_codes", "focus line 1, offset", "lens codes", kFloatDecimals, tRecord.dOffset1},
        {"focus_line_2/slope_codes_per_position", "focus line 2, slope", "lens codes per position",
         kFloatDecimals, tRecord.dSlope2},
        {"focus_line_2/offset_codes", "focus line 2, offset", "lens codes", kFloatDecimals, tRecord.dOffset2},
        {"checksum", "checksum", "", 0, tRecord.nCheckSum},
        {"sum_of_bytes", "sum of the bytes it covers, modulo 256", "", 0, tRecord.nSumOfBytes}};
}

std::string Hex(const std::string& str) {
    return fmt::format("{:02x}", fmt::join(std::vector<unsigned char>(str.begin(), str.end()), ""));
}

// Bytes without meaning: worth a line only where one is set.
std::string BytesText(const char* szLabel, const std::string& str) {
    const std::string strHead = std::string("  ") + szLabel + ", " + std::to_string(str.size()) + " bytes";
    if (str.find_first_not_of('\0') == str.npos)
        return str.empty() ? "" : strHead + ": all zero\n";
    return strHead + ", hexadecimal:\n    " + Hex(str) + "\n";
}

std::string FieldsText(const RecordReading& tReading, bool bAccepted) {
    if (!tReading.oRecord)
        return "";
    const RecordFields& tRecord = *tReading.oRecord;
    std::vector<std::vector<std::string>> aRows;
    for (const Quantity& tField : FieldsOf(tRecord))
        aRows.push_back({*tField.szUnit != '\0' ? LabelWithUnit(tField) : tField.strLabel, Shown(tField)});
    const char* const szHeading =
        bAccepted ? "\nThe record\n" : "\nThe record as decrypted; do not use these values\n";
    return szHeading + Table(aRows) + BytesText("reserved", tRecord.strReserved) +
           BytesText("behind the known fields", tRecord.strFurther);
}

std::string Line(const std::string& strLabel, const std::string& strText) {
    return strText.empty() ? "" : "  " + strLabel + Wrapped(strText, strLabel.size() + 2) + "\n";
}

const char* WordOf(const RecordJudgement& t) {
    return t.bAccepted ? "accepted" : "refused";
}

Json FieldsJson(const RecordReading& reading) {
    if (!reading.oRecord)
        return nullptr;
    Json tJson = JsonOf(FieldsOf(*reading.oRecord));
    tJson["reserved_hex"] = Hex(reading.oRecord->strReserved);
    tJson["further_hex"] = Hex(reading.oRecord->strFurther);
    return tJson;
}

} // namespace

std::string TextOf(const RecordReport& report) {
    const RecordReading& tReading = report.tReading;
    const RecordJudgement& tJudgement = report.tJudgement;
    const std::string strVerdict = tJudgement.bAccepted ? "ACCEPTED: " : "REFUSED: ";
    return Wrapped(strVerdict + tJudgement.strFound + ".", 0) + "\n\n" +
           Line("Status       ", HexOf(tReading.nStatus) + " " + tJudgement.szStatusName) +
           Line("Try          ", tJudgement.szTry) + "  Record       " + Harmless(tReading.strFile) + ", " +
           std::to_string(tReading.nFileBytes) + " bytes\n" + "  Calibration  " +
           Harmless(report.strCalibrationFile) + "\n" + List("Warnings", tJudgement.aWarnings) +
           FieldsText(tReading, tJudgement.bAccepted);
}

std::string JsonTextOf(const RecordReport& report) {
    const RecordReading& tReading = report.tReading;
    const RecordJudgement& tJudgement = report.tJudgement;
    return TextOf(Json{{"verdict", WordOf(tJudgement)},
                       {"exit_code", static_cast<int>(report.Exit())},
                       {"exit_meaning", WordOf(tJudgement)},
                       {"status",
                        {{"code", tReading.nStatus},
                         {"hex", HexOf(tReading.nStatus)},
                         {"name", tJudgement.szStatusName},
                         {"words", tJudgement.strFound},
                         {"try", tJudgement.szTry}}},
                       {"warnings", tJudgement.aWarnings},
                       {"record", FieldsJson(tReading)},
                       {"file", tReading.strFile},
                       {"file_bytes", tReading.nFileBytes},
                       {"calibration_file", report.strCalibrationFile},
                       {"library_version", LibraryVersion()},
                       {"tool_version", ToolVersion()}});
}

} // namespace tools

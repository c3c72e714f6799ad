#include "report.h"
#include "text_table.h"

namespace tools {
namespace {

using Cells = std::vector<std::string>;

// File names are not broken into lines, so that they can be copied.
std::string Line(const char* szLabel, const std::string& strText) {
    return strText.empty() ? "" : std::string("  ") + szLabel + strText + "\n";
}

std::string Words(const char* szLabel, const char* szText) {
    return Line(szLabel, Wrapped(szText, std::string(szLabel).size() + 2));
}

std::string WithSize(const PictureNote& t) {
    return t.strFile + ", " + std::to_string(t.nColumns) + " x " + std::to_string(t.nRows) + " px";
}

std::string Files(const Report& t) {
    return Line("Master       ", WithSize(t.tMaster)) + Line("Slave        ", WithSize(t.tSlave)) +
           Line("Calibration  ", t.strCalibrationFile) + Line("Record       ", t.strRecordFile);
}

std::string Status(const Measurement& t, const StatusWords& tWords) {
    const StageWords& tStage = WordsOf(tWords.tStage);
    return Line("Status       ", HexOf(t.nStatus) + " " + tWords.szName) +
           Line("Where        ", PlaceOfFailure(t)) +
           Line("Stage        ", tWords.tStage == Stage::kComplete ? "" : tStage.szName) +
           Words("Looked for   ", tStage.szLookedFor) + Words("Found        ", tWords.szFound) +
           Words("Try          ", tWords.szTry);
}

Cells AngleRow(const char* szName, const std::optional<Angles>& oAngles, double dLimit) {
    Cells aCells = {szName};
    for (const Quantity& t : QuantitiesOf(oAngles))
        aCells.push_back(Shown(t));
    aCells.push_back(AllowedRange(dLimit));
    return aCells;
}

std::string Rotation(const Measurement& t) {
    if (!t.oRaw)
        return "";
    return "\nRotation of the slave against the master, degrees\n" +
           Table({{"", "Rx", "Ry", "Rz", "allowed"},
                  AngleRow("raw (measured)", t.oRaw, kRawLimit),
                  AngleRow("rescaled (returned by getAlign)", t.oRescaled, kRescaledLimit)});
}

std::string Cameras(const Measurement& t) {
    const Quantities aMaster = QuantitiesOf(t.tMaster), aSlave = QuantitiesOf(t.tSlave);
    std::vector<Cells> aRows = {{"", "master", "slave"}};
    for (std::size_t i = 0; i < aMaster.size(); ++i)
        if (aMaster[i].oValue || aSlave[i].oValue)
            aRows.push_back({LabelWithUnit(aMaster[i]), Shown(aMaster[i]), Shown(aSlave[i])});
    if (aRows.size() == 1)
        return "";
    const char* const szRest = t.oRaw ? "" : ", as far as the measurement came";
    return std::string("\nEach camera's picture") + szRest + "\n" + Table(aRows);
}

std::string AgainstTruth(const Measurement& tMeasurement, const Truth& tTruth) {
    std::vector<Cells> aRows = {{"", "measured", "true", "difference"}};
    for (const Comparison& t : Compare(tMeasurement, tTruth))
        if (t.tMeasured.oValue)
            aRows.push_back(
                {LabelWithUnit(t.tTrue), Shown(t.tMeasured), Shown(t.tTrue), Shown(t.tDifference)});
    if (aRows.size() == 1)
        return "";
    return "\nAgainst the truth in " + tTruth.strFile + "\n" + Table(aRows);
}

std::string Section(const char* szHeading, const std::vector<std::string>& aLines) {
    if (aLines.empty())
        return "";
    std::string str = std::string("\n") + szHeading + "\n";
    for (const std::string& strLine : aLines)
        str += "  " + Wrapped(strLine, 2) + "\n";
    return str;
}

} // namespace

std::string TextOf(const Report& t) {
    return t.tVerdict.strHeadline + "\n\n" + Status(t.tMeasurement, t.tVerdict.tWords) + Files(t) +
           Rotation(t.tMeasurement) + (t.oTruth ? AgainstTruth(t.tMeasurement, *t.oTruth) : "") +
           Cameras(t.tMeasurement) + Section("The library's diagnostics", t.tMeasurement.aDiagnostics) +
           Section("The library's log", t.tMeasurement.aLog) + Section("Notes", t.tMeasurement.aNotes);
}

} // namespace tools

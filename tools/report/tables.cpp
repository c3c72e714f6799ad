#include "report/tables.h"

#include "pictures/picture_size.h"

namespace tools {
namespace {

using Cells = std::vector<std::string>;

std::string SizeOf(const PictureNote& t) {
    return SizeText({t.nColumns, t.nRows});
}

std::string WithSize(const PictureNote& t) {
    return t.strFile + ", " + SizeOf(t);
}

Cells AngleRow(const char* szName, const std::optional<Angles>& oAngles, double dLimit) {
    Cells aCells = {szName};
    for (const Quantity& t : QuantitiesOf(oAngles))
        aCells.push_back(Shown(t));
    aCells.push_back(AllowedRange(dLimit));
    return aCells;
}

ReportTable Rotation(const Measurement& t) {
    ReportTable tTable = {"Rotation of the slave against the master, degrees",
                          {{"", "Rx", "Ry", "Rz", "allowed"}}};
    if (t.oRaw) {
        tTable.aRows.push_back(AngleRow("raw (measured)", t.oRaw, kRawLimit));
        tTable.aRows.push_back(AngleRow("rescaled (returned by getAlign)", t.oRescaled, kRescaledLimit));
    }
    return tTable;
}

ReportTable SideBySide(const std::string& strHeading, const Quantities& aMaster, const Quantities& aSlave) {
    ReportTable tTable = {strHeading, {{"", "master", "slave"}}};
    for (std::size_t i = 0; i < aMaster.size(); ++i)
        if (aMaster[i].oValue || aSlave[i].oValue)
            tTable.aRows.push_back({LabelWithUnit(aMaster[i]), Shown(aMaster[i]), Shown(aSlave[i])});
    return tTable;
}

ReportTable AgainstTruth(const Measurement& tMeasurement, const Truth& tTruth) {
    ReportTable tTable = {"Against the truth in " + tTruth.strFile, {{"", "measured", "true", "difference"}}};
    for (const Comparison& t : Compare(tMeasurement, tTruth))
        if (t.tMeasured.oValue)
            tTable.aRows.push_back(
                {LabelWithUnit(t.tTrue), Shown(t.tMeasured), Shown(t.tTrue), Shown(t.tDifference)});
    return tTable;
}

} // namespace

std::vector<std::string> WarningsOf(const Report& t) {
    std::vector<std::string> a = WarningsOf(Camera::kMaster, t.tMasterTrust);
    for (std::string& str : WarningsOf(Camera::kSlave, t.tSlaveTrust))
        a.push_back(std::move(str));
    if (t.tMaster.nColumns != t.tSlave.nColumns || t.tMaster.nRows != t.tSlave.nRows)
        a.push_back(
            "the pictures differ in size: master " + SizeOf(t.tMaster) + ", slave " + SizeOf(t.tSlave) +
            ". The angles allow for it; the record's shift mixes pixels of both. Check that each picture "
            "is as its camera took it.");
    return a;
}

std::vector<Fact> FactsOf(const Report& t) {
    const StatusWords& tWords = t.tVerdict.tWords;
    const StageWords& tStage = WordsOf(tWords.tStage);
    std::vector<Fact> a = {
        {"Status", HexOf(t.tMeasurement.nStatus) + " " + tWords.szName, false},
        {"Where", PlaceOfFailure(t.tMeasurement), false},
        {"Stage", tWords.tStage == Stage::kComplete ? "" : tStage.szName, false},
        {"Looked for", tStage.szLookedFor, false},
        {"Found", tWords.szFound, false},
        {"Try", tWords.szTry, false},
        {"Master", WithSize(t.tMaster), true},
        {"Slave", WithSize(t.tSlave), true},
        {"Calibration", t.strCalibrationFile, true},
        {"Record", t.strRecordFile, true},
    };
    std::erase_if(a, [](const Fact& tFact) { return tFact.strText.empty(); });
    return a;
}

std::vector<ReportTable> TablesOf(const Report& t) {
    const Measurement& m = t.tMeasurement;
    const std::string strRest = m.oRaw ? "" : ", as far as the measurement came";
    std::vector<ReportTable> a = {Rotation(m),
                                  SideBySide("Trust: the tool's own reading of each picture" + strRest,
                                             QuantitiesOf(t.tMasterTrust), QuantitiesOf(t.tSlaveTrust))};
    if (t.oTruth)
        a.push_back(AgainstTruth(m, *t.oTruth));
    a.push_back(
        SideBySide("Each camera's picture" + strRest, QuantitiesOf(m.tMaster), QuantitiesOf(m.tSlave)));
    std::erase_if(a, [](const ReportTable& tTable) { return tTable.aRows.size() == 1; });
    return a;
}

std::vector<ReportList> ListsOf(const Report& t) {
    std::vector<ReportList> a = {{"Warnings", WarningsOf(t), true},
                                 {"The library's diagnostics", t.tMeasurement.aDiagnostics},
                                 {"The library's log", t.tMeasurement.aLog},
                                 {"Notes", t.tMeasurement.aNotes}};
    std::erase_if(a, [](const ReportList& tList) { return tList.aLines.empty(); });
    return a;
}

} // namespace tools

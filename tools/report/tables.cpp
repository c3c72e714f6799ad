#include "report/tables.h"

#include "trust/numbers.h"

namespace tools {
namespace {

using Cells = std::vector<std::string>;

std::string WithSize(const Picture& tPicture) {
    return tPicture.strFile + ", " + SizeText(tPicture.Size());
}

Cells AngleRow(const char* szName, const std::optional<Angles>& oAngles, double dLimit) {
    Cells aCells = {szName};
    for (const Quantity& t : QuantitiesOf(oAngles))
        aCells.push_back(Shown(t));
    aCells.push_back(AllowedRange(dLimit));
    return aCells;
}

ReportTable Rotation(const PairResult& pair) {
    ReportTable tTable = {"Rotation of the slave against the master, degrees",
                          {{"", "Rx", "Ry", "Rz", "allowed"}}};
    if (pair.oRaw) {
        tTable.aRows.push_back(AngleRow("raw (measured)", pair.oRaw, kRawLimit));
        tTable.aRows.push_back(AngleRow("rescaled (returned by getAlign)", pair.oRescaled, kRescaledLimit));
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

ReportTable AgainstTruth(const Report& report) {
    ReportTable tTable = {"Against the truth in " + report.oTruth->strFile,
                          {{"", "measured", "true", "difference"}}};
    for (const Comparison& t : ComparisonsOf(report))
        if (t.tMeasured.oValue)
            tTable.aRows.push_back(
                {LabelWithUnit(t.tTrue), Shown(t.tMeasured), Shown(t.tTrue), Shown(t.tDifference)});
    return tTable;
}

} // namespace

std::vector<Fact> FactsOf(const Report& report) {
    const StatusWords& tStatus = report.tVerdict.tStatus;
    const StageWords& tStage = DescribeStage(tStatus.tStage);
    std::vector<Fact> a = {
        {"Status", HexOf(report.tPair.nStatus) + " " + tStatus.szName, false},
        {"Where", PlaceOfFailure(report.tPair), false},
        {"Stage", tStatus.tStage == Stage::kComplete ? "" : tStage.szName, false},
        {"Looked for", tStage.szLookedFor, false},
        {"Found", tStatus.szFound, false},
        {"Try", tStatus.szTry, false},
        {"Master", WithSize(report.tMaster.tPicture), true},
        {"Slave", WithSize(report.tSlave.tPicture), true},
        {"Calibration", report.strCalibrationFile, true},
        {"Record", report.strRecordFile, true},
    };
    std::erase_if(a, [](const Fact& tFact) { return tFact.strText.empty(); });
    return a;
}

std::vector<ReportTable> TablesOf(const Report& report) {
    const std::string strRest = report.tPair.oRaw ? "" : ", as far as the measurement came";
    const CameraReport &tMaster = report.tMaster, &tSlave = report.tSlave;
    std::vector<ReportTable> a = {Rotation(report.tPair),
                                  SideBySide("Trust: the tool's own reading of each picture" + strRest,
                                             QuantitiesOf(tMaster.tTrust), QuantitiesOf(tSlave.tTrust))};
    if (report.oTruth)
        a.push_back(AgainstTruth(report));
    a.push_back(SideBySide("Each camera's picture" + strRest, QuantitiesOf(tMaster.tMeasured),
                           QuantitiesOf(tSlave.tMeasured)));
    std::erase_if(a, [](const ReportTable& tTable) { return tTable.aRows.size() == 1; });
    return a;
}

std::vector<ReportList> ListsOf(const Report& report) {
    std::vector<std::string> aWarnings;
    for (const Warning& tWarning : report.aWarnings)
        aWarnings.push_back(tWarning.strText);
    std::vector<ReportList> a = {{"Warnings", aWarnings, true},
                                 {"The library's diagnostics", report.tPair.aDiagnostics},
                                 {"The library's log", report.tPair.aLog},
                                 {"Notes", report.tPair.aNotes}};
    std::erase_if(a, [](const ReportList& tList) { return tList.aLines.empty(); });
    return a;
}

} // namespace tools

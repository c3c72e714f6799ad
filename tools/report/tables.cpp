#include "report/tables.h"

#include "basics/text_table.h"
#include "trust/numbers.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

using Cells = std::vector<std::string>;

std::string WithSize(const Picture& tPicture) {
    return tPicture.strFile + ", " + SizeText(tPicture.Size());
}

// "0.6191 (second reading 0.6198 +- 0.0007)"
std::string WithSecond(const Quantity& tRaw, const std::optional<UncertainAngles>& oSecond,
                       std::size_t nAxis) {
    const Quantities aSecond = QuantitiesOf(oSecond);
    return oSecond ? fmt::format("{} (second reading {} +- {})", Shown(tRaw), Shown(aSecond[nAxis]),
                                 Shown(aSecond[nAxis + kAxes.size()]))
                   : Shown(tRaw);
}

// Out of range, or spoken against.
bool IsBeyond(const Report& report, std::size_t nAxis) {
    const Limits& tLimits = report.tSetup.tLimits;
    const Angles& tJudged = tLimits.HoldsForRaw() ? *report.tPair.oRaw : *report.tPair.oRescaled;
    return tLimits.IsBeyond(tJudged.*kAxes[nAxis].pAngle) ||
           std::ranges::count(report.aWarnings, kAxes[nAxis].szKey, &Warning::szAxis) != 0;
}

ReportTable Rotation(const Report& report) {
    ReportTable tTable = {
        "Rotation of the slave against the master, degrees (rescaled: as getAlign returns it)",
        {{"", "raw", "rescaled", "allowed"}},
        true};
    const Limits& tLimits = report.tSetup.tLimits;
    const Quantities aRaw = QuantitiesOf(report.tPair.oRaw), aRescaled = QuantitiesOf(report.tPair.oRescaled);
    for (std::size_t i = 0; i < kAxes.size() && report.tPair.oRaw; ++i)
        tTable.aRows.push_back({kAxes[i].szLabel, WithSecond(aRaw[i], report.oSecondAngles, i),
                                Shown(aRescaled[i]) + (IsBeyond(report, i) ? kBeyond : ""),
                                AllowedRange(tLimits.dRescaled) + (tLimits.HoldsForRaw() ? " raw" : "")});
    return tTable;
}

std::string Marked(const Quantity& t) {
    return Shown(t) + (t.bBeyond ? kBeyond : "");
}

ReportTable SideBySide(const std::string& strHeading, const Quantities& aMaster, const Quantities& aSlave) {
    ReportTable tTable = {strHeading, {{"", "master", "slave"}}};
    const bool bLimits = std::ranges::any_of(aMaster, [](const Quantity& t) { return !t.strLimit.empty(); });
    if (bLimits)
        tTable.aRows[0].emplace_back("limit");
    for (std::size_t i = 0; i < aMaster.size(); ++i)
        if (aMaster[i].oValue || aSlave[i].oValue) {
            tTable.aRows.push_back({LabelWithUnit(aMaster[i]), Marked(aMaster[i]), Marked(aSlave[i])});
            if (bLimits)
                tTable.aRows.back().push_back(aMaster[i].strLimit == aSlave[i].strLimit
                                                  ? aMaster[i].strLimit
                                                  : aMaster[i].strLimit + ", " + aSlave[i].strLimit);
        }
    return tTable;
}

ReportTable AgainstTruth(const Report& report) {
    ReportTable tTable = {
        "Against the truth in " + report.oTruth->strFile, {{"", "measured", "true", "difference"}}, true};
    for (const Comparison& t : ComparisonsOf(report))
        if (t.tMeasured.oValue)
            tTable.aRows.push_back(
                {LabelWithUnit(t.tTrue), Shown(t.tMeasured), Shown(t.tTrue), Shown(t.tDifference)});
    return tTable;
}

// What the tool's own reading saw, where the library did not come to an end.
std::string SecondReadingOf(const CameraReport& tCamera) {
    if (!tCamera.tReading.oReading)
        return "";
    const CameraTrust::Frame& t = *tCamera.tTrust.oFrame;
    return fmt::format("the chart, its frame {:.0f} x {:.0f} px, rolled by {} degrees", t.dWidth, t.dHeight,
                       Fixed(tCamera.tReading.oReading->tRoll.dValue, 1));
}

// Whoever reads the numbers must know that the phone would measure otherwise.
std::string ProductText(const MeasuringSetup& setup) {
    if (setup.strProduct.empty())
        return "";
    const std::vector<std::string> aChanged = ChangedParameters(setup.tParameters);
    return setup.strProduct + (aChanged.empty() ? ", with the library's own parameters"
                                                : ", not as the phone measures: " + Listed(aChanged));
}

// In the order of the pictures above.
std::string Checksums(const Report& report) {
    const std::string &strMaster = report.tMaster.tPicture.strSha256,
                      &strSlave = report.tSlave.tPicture.strSha256;
    return strMaster.empty() ? "" : "master " + strMaster + ", slave " + strSlave;
}

} // namespace

std::vector<std::string> TextsOf(const std::vector<Warning>& aWarnings, bool bDoubt) {
    std::vector<std::string> a;
    for (const Warning& t : aWarnings)
        if (t.bDoubt == bDoubt)
            a.push_back(t.strText);
    return a;
}

const char* DoubtsHeading(const Report& report) {
    return IsMeasured(report.tPair) ? "What speaks against these angles" : "What may be the cause";
}

// The status tells what usually helps; a cause that was seen comes first, or tells all that is to be done.
std::string AdviceOf(const Report& report) {
    const char* const szUsual = report.tVerdict.tStatus.szTry;
    const bool bSeen = std::ranges::any_of(report.aWarnings, &Warning::bDoubt);
    if (IsMeasured(report.tPair) || !bSeen)
        return szUsual;
    const bool bSpoiled = std::ranges::any_of(report.aWarnings, [&](const Warning& t) {
        return t.bDoubt && t.oCamera && t.oCamera == report.tPair.oFailedCamera && t.nRank == 0;
    });
    return bSpoiled ? "" : std::string("First do what is told below as the cause. ") + szUsual;
}

std::vector<Fact> FactsOf(const Report& report) {
    const StatusWords& tStatus = report.tVerdict.tStatus;
    const StageWords& tStage = DescribeStage(tStatus.tStage);
    const bool bMeasured = IsMeasured(report.tPair);
    std::vector<Fact> a = {
        {"Status", HexOf(report.tPair.nStatus) + " " + tStatus.szName, false},
        {"Where", PlaceOfFailure(report.tPair), false},
        {"Stage", tStatus.tStage == Stage::kComplete ? "" : tStage.szName, false},
        {"Looked for", tStage.szLookedFor, false, !bMeasured},
        {"Found", tStatus.szFound, false},
        {"Try", AdviceOf(report), false, true},
        {"Master seen", bMeasured ? "" : SecondReadingOf(report.tMaster), false, true},
        {"Slave seen", bMeasured ? "" : SecondReadingOf(report.tSlave), false, true},
        {"Master", WithSize(report.tMaster.tPicture), true},
        {"Slave", WithSize(report.tSlave.tPicture), true},
        {"SHA-256", Checksums(report), true},
        {"Product", ProductText(report.tSetup), false, true},
        {"Calibration", report.strCalibrationFile, true},
        {"Record", report.strRecordFile, true},
    };
    std::erase_if(a, [](const Fact& tFact) { return tFact.strText.empty(); });
    return a;
}

std::vector<ReportTable> TablesOf(const Report& report) {
    const std::string strRest = report.tPair.oRaw ? "" : ", as far as the measurement came";
    const CameraReport &tMaster = report.tMaster, &tSlave = report.tSlave;
    std::vector<ReportTable> a = {Rotation(report),
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
    std::vector<ReportList> a = {{DoubtsHeading(report), TextsOf(report.aWarnings, true), true},
                                 {"Notes", TextsOf(report.aWarnings, false)},
                                 {"The library's diagnostics", report.tPair.aDiagnostics}};
    std::erase_if(a, [](const ReportList& tList) { return tList.aLines.empty(); });
    return a;
}

} // namespace tools

#include "report/outputs.h"

#include "measuring/versions.h"
#include "report/tables.h"
#include "trust/numbers.h"

namespace tools {
namespace {

Json StatusJson(const PairResult& pair, const StatusWords& tStatus, const std::string& strTry) {
    const StageWords& tStage = DescribeStage(tStatus.tStage);
    return {{"code", pair.nStatus},
            {"hex", HexOf(pair.nStatus)},
            {"name", tStatus.szName},
            {"camera", pair.oFailedCamera ? Json(NameOf(*pair.oFailedCamera)) : Json()},
            {"where", PlaceOfFailure(pair)},
            {"stage", tStage.szName},
            {"looked_for", tStage.szLookedFor},
            {"words", tStatus.szFound},
            {"try", strTry}};
}

Json CameraJson(const CameraReport& tCamera) {
    Json tJson = {{"file", tCamera.tPicture.strFile},
                  {"width_px", tCamera.tPicture.nColumns},
                  {"height_px", tCamera.tPicture.nRows}};
    tJson.update(JsonOf(QuantitiesOf(tCamera.tMeasured)));
    return tJson;
}

Json TrustJson(const CameraTrust& trust) {
    Json tJson = JsonOf(QuantitiesOf(trust));
    tJson.update(JsonOf(LinesOf(trust)));
    return tJson;
}

Json ComparisonJson(const Report& report) {
    Json tJson = {{"file", report.oTruth->strFile}};
    for (const Comparison& t : ComparisonsOf(report))
        tJson[PlaceOf(t.tTrue.strKey)] = {{"measured", JsonOf(t.tMeasured)},
                                          {"true", JsonOf(t.tTrue)},
                                          {"difference", JsonOf(t.tDifference)}};
    return tJson;
}

} // namespace

std::string JsonTextOf(const Report& report) {
    const PairResult& pair = report.tPair;
    const VerdictWords& tVerdict = report.tVerdict.tVerdict;
    const Limits& tLimits = report.tSetup.tLimits;
    Json tJson = {
        {"verdict", tVerdict.szKey},
        {"headline", report.tVerdict.strHeadline},
        {"exit_code", static_cast<int>(report.tExit)},
        {"exit_meaning", tVerdict.szMeaning},
        {"status", StatusJson(pair, report.tVerdict.tStatus, AdviceOf(report))},
        {"raw_deg", JsonOf(QuantitiesOf(pair.oRaw))},
        {"rescaled_deg", JsonOf(QuantitiesOf(pair.oRescaled))},
        {"raw_limit_deg", tLimits.Raw()},
        {"rescaled_limit_deg", tLimits.dRescaled},
        {"master", CameraJson(report.tMaster)},
        {"slave", CameraJson(report.tSlave)},
        {"trust", {{"master", TrustJson(report.tMaster.tTrust)}, {"slave", TrustJson(report.tSlave.tTrust)}}},
        {"trust_limits", TrustLimitsJson(report.tSlave.tTrust)},
        {"max_difference_deg", tLimits.dMaxDifference},
        {"max_uncertainty_deg", tLimits.dMaxUncertainty},
        {"warnings", Json::array()},
        {"warning_details", Json::array()},
        {"calibration_file", report.strCalibrationFile}};
    tJson.update(JsonOf(QuantitiesOf(report.oSecondAngles)));
    if (const Json t = TrustLimitsJson(report.tMaster.tTrust); t != tJson["trust_limits"])
        tJson["master_trust_limits"] = t; // where a product's cameras are searched differently
    for (const Warning& tWarning : report.aWarnings) {
        tJson["warnings"].push_back(tWarning.strText);
        tJson["warning_details"].push_back(JsonOf(tWarning));
    }
    if (const MeasuringSetup& t = report.tSetup; !t.strProduct.empty())
        tJson["product"] = {{"file", t.strProduct}, {"changed_parameters", ChangedParameters(t.tParameters)}};
    if (!report.strRecordFile.empty())
        tJson["record_file"] = report.strRecordFile;
    if (report.oTruth)
        tJson["truth"] = ComparisonJson(report);
    tJson["diagnostics"] = pair.aDiagnostics;
    tJson["library_version"] = LibraryVersion();
    tJson["tool_version"] = ToolVersion();
    return TextOf(tJson);
}

std::string JsonTextOf(const ToolError& tError) {
    const VerdictWords& tVerdict = DescribeVerdict(VerdictKind::kUnfitInput);
    return TextOf(Json{{"verdict", tVerdict.szKey},
                       {"exit_code", static_cast<int>(tVerdict.tExit)},
                       {"exit_meaning", tVerdict.szMeaning},
                       {"file", tError.File()},
                       {"reason", tError.Reason()},
                       {"advice", tError.Advice()},
                       {"message", tError.OneLine()}});
}

} // namespace tools

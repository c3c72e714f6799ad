#include "measuring/versions.h"
#include "report/report.h"
#include "trust/limits.h"

namespace tools {
namespace {

Json StatusJson(const Measurement& t, const StatusWords& tWords) {
    return {{"code", t.nStatus},
            {"hex", HexOf(t.nStatus)},
            {"name", tWords.szName},
            {"camera", t.oFailedCamera ? Json(NameOf(*t.oFailedCamera)) : Json()},
            {"where", PlaceOfFailure(t)},
            {"stage", WordsOf(tWords.tStage).szName},
            {"looked_for", WordsOf(tWords.tStage).szLookedFor},
            {"words", tWords.szFound},
            {"try", tWords.szTry}};
}

Json CameraJson(const PictureNote& tPicture, const CameraMeasurement& t) {
    Json tJson = {{"file", tPicture.strFile}, {"width_px", tPicture.nColumns}, {"height_px", tPicture.nRows}};
    tJson.update(JsonOf(QuantitiesOf(t)));
    return tJson;
}

Json TrustJson(const CameraTrust& t) {
    Json tJson = JsonOf(QuantitiesOf(t));
    tJson.update(JsonOf(LinesOf(t)));
    return tJson;
}

Json TrustJson(const Report& t) {
    return {{"master", TrustJson(t.tMasterTrust)}, {"slave", TrustJson(t.tSlaveTrust)}};
}

Json TruthJson(const Measurement& tMeasurement, const Truth& tTruth) {
    Json tJson = {{"file", tTruth.strFile}};
    for (const Comparison& t : Compare(tMeasurement, tTruth))
        tJson[PlaceOf(t.tTrue.strKey)] = {{"measured", JsonOf(t.tMeasured)},
                                          {"true", JsonOf(t.tTrue)},
                                          {"difference", JsonOf(t.tDifference)}};
    return tJson;
}

// What is warned of: more than the first two, less than the others.
Json TrustLimitsJson() {
    return {{"side_residual_px", kLargeResidual},
            {"side_corner_distance_px", kLargeCornerDistance},
            {"side_lines_read_percent", kLeastRead},
            {"contrast_grey", kLowContrast},
            {"border_distance_px", kNearBorder}};
}

} // namespace

std::string JsonTextOf(const Report& tReport) {
    const Measurement& t = tReport.tMeasurement;
    Json tJson = {{"verdict", tReport.tVerdict.szKey},
                  {"headline", tReport.tVerdict.strHeadline},
                  {"exit_code", static_cast<int>(tReport.tVerdict.tExit)},
                  {"exit_meaning", MeaningOf(tReport.tVerdict.tExit, kMeasureExits)},
                  {"status", StatusJson(t, tReport.tVerdict.tWords)},
                  {"raw_deg", JsonOf(QuantitiesOf(t.oRaw))},
                  {"rescaled_deg", JsonOf(QuantitiesOf(t.oRescaled))},
                  {"raw_limit_deg", kRawLimit},
                  {"rescaled_limit_deg", kRescaledLimit},
                  {"master", CameraJson(tReport.tMaster, t.tMaster)},
                  {"slave", CameraJson(tReport.tSlave, t.tSlave)},
                  {"trust", TrustJson(tReport)},
                  {"trust_limits", TrustLimitsJson()},
                  {"warnings", WarningsOf(tReport)},
                  {"calibration_file", tReport.strCalibrationFile}};
    if (!tReport.strRecordFile.empty())
        tJson["record_file"] = tReport.strRecordFile;
    if (tReport.oTruth)
        tJson["truth"] = TruthJson(t, *tReport.oTruth);
    tJson["diagnostics"] = t.aDiagnostics;
    tJson["log"] = t.aLog;
    tJson["notes"] = t.aNotes;
    tJson["library_version"] = LibraryVersion();
    tJson["tool_version"] = kToolVersion;
    return TextOf(tJson);
}

} // namespace tools

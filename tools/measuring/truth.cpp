#include "measuring/truth.h"

#include "basics/files.h"
#include "basics/tool_error.h"

#include <algorithm>

namespace tools {
namespace {

constexpr std::size_t nLimit = 1 << 20;

CameraMeasurement TrueCamera(const chart::Truth& t) {
    CameraMeasurement tCamera;
    tCamera.oCentre = Point{t.tCentre.dX, t.tCentre.dY};
    std::ranges::transform(t.aCorners, tCamera.aoCorners.begin(), [](const chart::Point& tCorner) {
        return Point{tCorner.dX, tCorner.dY};
    });
    return tCamera;
}

Angles AnglesOf(const chart::Pose& t) {
    return {t.dRx, t.dRy, t.dRz};
}

// What a truth file holds, in the order of the measurement's list.
Quantities TrueQuantities(const chart::Pose& tRelative, const chart::Truth& tMaster,
                          const chart::Truth& tSlave) {
    Quantities a = QuantitiesOf(AnglesOf(tRelative), TrueCamera(tMaster), TrueCamera(tSlave));
    std::erase_if(a, [](const Quantity& t) { return !t.oValue; });
    return a;
}

Json CameraJson(const chart::Camera& tCamera, const chart::Capture& tCapture) {
    return {{"width_px", tCamera.nWidth},
            {"height_px", tCamera.nHeight},
            {"focal_length_px", tCamera.dFocal},
            {"principal_point_px", {{"x", tCamera.dPrincipalX}, {"y", tCamera.dPrincipalY}}},
            {"blur_sigma_px", tCapture.dBlurSigma},
            {"noise_sigma_grey", tCapture.dNoiseSigma},
            {"vignetting_share", tCapture.dVignetting},
            {"gain_factor", tCapture.dGain},
            {"seed", tCapture.nSeed}};
}

Json ChartJson(const chart::Chart& t) {
    return {{"distance_units", t.dDistance},
            {"frame_half_width_units", t.dFrameHalfWidth},
            {"frame_half_height_units", t.dFrameHalfHeight},
            {"frame_line_width_units", t.dFrameLineWidth},
            {"horizontal_bar_half_length_units", t.dHorizontalBarHalfLength},
            {"horizontal_bar_width_units", t.dHorizontalBarWidth},
            {"vertical_bar_half_length_units", t.dVerticalBarHalfLength},
            {"vertical_bar_width_units", t.dVerticalBarWidth},
            {"ink_grey", t.dInk},
            {"paper_grey", t.dPaper}};
}

Json Parsed(const std::string& strFile) {
    try {
        return Json::parse(ReadFile(strFile, nLimit));
    } catch (const Json::parse_error& t) {
        throw ToolError(strFile, "is not JSON (broken at byte " + std::to_string(t.byte) + ")",
                        "Name the truth.json that orvex-align render wrote");
    } catch (const Json::out_of_range&) {
        throw ToolError(strFile, "holds a number that is too large",
                        "Name the truth.json that orvex-align render wrote");
    }
}

double NumberAt(const Json& tJson, const Quantity& t, const std::string& strFile) {
    try {
        return tJson.at(PlaceOf(t.strKey)).get<double>();
    } catch (const Json::exception&) {
        throw ToolError(strFile, "holds no number \"" + t.strKey + "\"",
                        "Name the truth.json that orvex-align render wrote");
    }
}

} // namespace

Truth ReadTruth(const std::string& strFile) {
    const Json tJson = Parsed(strFile);
    Truth tTruth = {strFile, TrueQuantities({}, {}, {})};
    for (Quantity& t : tTruth.aTrue)
        t.oValue = NumberAt(tJson, t, strFile);
    return tTruth;
}

Json TruthJson(const chart::PairSetup& tSetup) {
    const chart::PairTruth tTruth = chart::TruthOf(tSetup);
    const chart::Truth &tMaster = tTruth.tMaster, &tSlave = tTruth.tSlave;
    Json tJson = JsonOf(TrueQuantities(tSetup.tRelativePose, tMaster, tSlave));
    tJson["master"]["pose_deg"] = JsonOf(QuantitiesOf(AnglesOf(tMaster.tPose)));
    tJson["slave"]["pose_deg"] = JsonOf(QuantitiesOf(AnglesOf(tSlave.tPose)));
    tJson["master"]["camera"] = CameraJson(tSetup.tMaster, tSetup.tMasterCapture);
    tJson["slave"]["camera"] = CameraJson(tSetup.tSlave, tSetup.tSlaveCapture);
    tJson["chart"] = ChartJson(tSetup.tChart);
    return tJson;
}

std::vector<Comparison> Compare(const Measurement& tMeasurement, const Truth& tTruth) {
    const Quantities aMeasured = QuantitiesOf(tMeasurement.oRaw, tMeasurement.tMaster, tMeasurement.tSlave);
    std::vector<Comparison> a;
    for (const Quantity& tTrue : tTruth.aTrue) {
        const Quantity& tMeasured = *std::ranges::find(aMeasured, tTrue.strKey, &Quantity::strKey);
        Quantity tDifference = tMeasured;
        if (tDifference.oValue)
            *tDifference.oValue -= *tTrue.oValue;
        a.push_back({tMeasured, tTrue, tDifference});
    }
    return a;
}

} // namespace tools

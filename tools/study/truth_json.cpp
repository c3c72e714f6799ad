#include "study/truth_json.h"

#include "measuring/truth.h"

namespace tools {
namespace {

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

Json ChartJson(const chart::Chart& tChart) {
    return {{"distance_units", tChart.dDistance},
            {"frame_half_width_units", tChart.dFrameHalfWidth},
            {"frame_half_height_units", tChart.dFrameHalfHeight},
            {"frame_line_width_units", tChart.dFrameLineWidth},
            {"horizontal_bar_half_length_units", tChart.dHorizontalBarHalfLength},
            {"horizontal_bar_width_units", tChart.dHorizontalBarWidth},
            {"vertical_bar_half_length_units", tChart.dVerticalBarHalfLength},
            {"vertical_bar_width_units", tChart.dVerticalBarWidth},
            {"ink_grey", tChart.dInk},
            {"paper_grey", tChart.dPaper}};
}

} // namespace

Json TruthJson(const chart::PairSetup& tSetup) {
    const chart::PairTruth tTruth = chart::TruthOf(tSetup);
    const chart::Truth &tMaster = tTruth.tMaster, &tSlave = tTruth.tSlave;
    Json tJson = JsonOf(TrueQuantities(tSetup.tRelativePose, tMaster, tSlave));
    tJson["master"]["pose_deg"] = JsonOf(QuantitiesOf(tMaster.tPose));
    tJson["slave"]["pose_deg"] = JsonOf(QuantitiesOf(tSlave.tPose));
    tJson["master"]["camera"] = CameraJson(tSetup.tMaster, tSetup.tMasterCapture);
    tJson["slave"]["camera"] = CameraJson(tSetup.tSlave, tSetup.tSlaveCapture);
    tJson["chart"] = ChartJson(tSetup.tChart);
    return tJson;
}

} // namespace tools

#include "study/notes.h"

#include "chart/noise.h"
#include "measuring/calibration.h"
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

// Two pairs of big-endian 16-bit lens positions, as the autofocus record uses them.
constexpr std::size_t kPairs[] = {13, 2911};

// Apart from the streams of the pictures' noise.
constexpr std::uint64_t kStream = 0x10000;

void PutPosition(std::string& strImage, std::size_t nPlace, unsigned int nPosition) {
    strImage[nPlace] = static_cast<char>(nPosition >> 8);
    strImage[nPlace + 1] = static_cast<char>(nPosition & 0xFF);
}

// A calibration memory image: bytes of the seed's own, with lens positions where a module has them, the
// second of a pair beyond the first.
std::string MadeUpCalibration(std::uint64_t nSeed) {
    std::string strImage(kCalibrationBytes, '\0');
    for (std::size_t i = 0; i < strImage.size(); ++i)
        strImage[i] = static_cast<char>(chart::DerivedSeed(nSeed, kStream + i) & 0xFF);
    for (const std::size_t nPair : kPairs) {
        const auto nFirst = static_cast<unsigned char>(strImage[nPair]) + 200u;
        PutPosition(strImage, nPair, nFirst);
        PutPosition(strImage, nPair + 2, nFirst + static_cast<unsigned char>(strImage[nPair + 2]) + 150u);
    }
    return strImage;
}

} // namespace

std::vector<NewFile> NotesOf(const PairOptions& tOptions, const PairFiles& tFiles,
                             std::uint64_t nCalibrationSeed) {
    return {{tFiles.strTruth, TruthJson(SetupOf(tOptions)).dump(2) + "\n"},
            {tFiles.strCalibration, MadeUpCalibration(nCalibrationSeed)}};
}

} // namespace tools

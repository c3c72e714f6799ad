// The whole measurement as a host calls it, with the parameters that every host gets.

#include "chart/pair.h"
#include "measuring.h"
#include "painting.h"
#include "support/get_align.h"

using namespace fuzz;

namespace {

// As small as the search for the frame allows: it starts 450 px beside and 200 px above and below the centre.
constexpr View tView = {1000, 500, 475, 225};

double Degrees(Input& t, double dLargest) {
    return t.Around0(1000) * dLargest / 1000;
}

chart::Occlusion Thing(Input& t) {
    return {t.Int(-50, 1000), t.Int(-50, 500), t.Int(0, 400), t.Int(0, 400), static_cast<double>(t.Byte())};
}

// A picture from the renderer: any pose, chart and camera.
support::Picture Rendered(Input& t) {
    chart::Chart tChart;
    tChart.dFrameLineWidth = 4.0 + t.Around0(40) / 10.0;
    tChart.dHorizontalBarWidth = 4.0 + t.Around0(40) / 10.0;
    tChart.dVerticalBarWidth = 4.0 + t.Around0(40) / 10.0;
    tChart.dHorizontalBarHalfLength = 70 + t.Around0(120);
    tChart.dVerticalBarHalfLength = 32 + t.Around0(70);
    tChart.dInk = t.Byte(40);
    tChart.dPaper = t.Byte(200);
    chart::Camera tCamera = {1000, 500, 1500.0 + t.Around0(500), 499.5 + t.Around0(300),
                             249.5 + t.Around0(200)};
    tCamera.nWidth += t.Around0(100);
    tCamera.nHeight += t.Around0(100);
    const chart::Pose tPose = {Degrees(t, 20), Degrees(t, 20), Degrees(t, 45)};
    chart::Capture tCapture;
    tCapture.dVignetting = t.Int(0, 100) / 100.0;
    tCapture.dBlurSigma = t.Int(0, 40) / 10.0;
    tCapture.dGain = 1.0 + t.Around0(100) / 100.0;
    tCapture.dNoiseSigma = t.Int(0, 60);
    for (int i = t.Int(0, 4); i > 0; --i)
        tCapture.aOcclusions.push_back(Thing(t));
    return chart::Shot{tCamera.nWidth, tCamera.nHeight, chart::Render(tChart, tCamera, tPose, tCapture), {}};
}

support::Picture AnyPicture(Input& t) {
    return t.OneIn(8) ? Rendered(t) : support::Picture(PaintChart(t, tView));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    support::Picture tMaster = AnyPicture(t), tSlave = AnyPicture(t);
    static std::vector<unsigned char> aCalibration = support::Calibration();
    constexpr double dUntouched = support::AlignResult::dUntouched;
    double adAngles[3] = {dUntouched, dUntouched, dUntouched};
    _AFPROTECT tRecord = {};
    const unsigned int nStatus = RequireSameTwice([&] {
        return Orvex_Alignment_ForAndroid(tMaster.aPixels.data(), tSlave.aPixels.data(), tMaster.nColumns,
                                          tMaster.nRows, tSlave.nColumns, tSlave.nRows, &adAngles[0],
                                          &adAngles[1], &adAngles[2], aCalibration.data(), &tRecord);
    });
    for (const double dAngle : adAngles)
        Require((nStatus == ORVEX_OK) == (dAngle != dUntouched), "angles are written on success only");
    Require((nStatus == ORVEX_OK) == (tRecord.ubVersionMajor == 1), "the record is written on success only");
    return 0;
}

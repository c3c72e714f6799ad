#include "tools/reading/pairs.h"

#include "chart/blur.h"
#include "chart/noise.h"
#include "chart/pair.h"
#include "measuring/parameters.h"
#include "report/report.h"
#include "support/dirt.h"

#include <ctime>

using namespace tools;

namespace reading {
namespace {

constexpr std::array kNoises = {0.5, 1.0, 2.0, 4.0, 6.0};
constexpr std::array kBlurs = {0.4, 0.8, 1.4, 2.0};
constexpr std::array<PictureSize, 3> kSizes = {{{1728, 972}, {1600, 1200}, {2104, 1560}}};

// On a line of the chart, or so near that its edges and its paper are covered.
chart::Point DrawnPlace(support::Random& t, const chart::Chart& tChart) {
    const double dAlong = t.Real(-1, 1), dBeside = t.Real(-9, 9), dSide = t.Int(0, 1) * 2 - 1;
    const double dX = tChart.dFrameHalfWidth, dY = tChart.dFrameHalfHeight;
    const std::array<chart::Point, 4> a = {{{dAlong * dX, dSide * dY + dBeside},
                                            {dSide * dX + dBeside, dAlong * dY},
                                            {dAlong * tChart.dHorizontalBarHalfLength, dBeside},
                                            {dBeside, dAlong * tChart.dVerticalBarHalfLength}}};
    return a[static_cast<std::size_t>(t.Int(0, 5)) % a.size()]; // the frame more often
}

Picture Shot(support::Random& t, const chart::PairSetup& tSetup, bool bSlave, int nPieces) {
    const chart::Camera& tCamera = bSlave ? tSetup.tSlave : tSetup.tMaster;
    const chart::Capture& tCapture = tSetup.tMasterCapture;
    const chart::Pose tPose = bSlave ? tSetup.tMasterPose + tSetup.tRelativePose : tSetup.tMasterPose;
    chart::Plane tPlane = chart::RenderScene(tSetup.tChart, tCamera, tPose);
    for (int i = 0; i < nPieces; ++i) {
        const chart::Point tPlace =
            chart::ProjectPoint(tSetup.tChart, tCamera, tPose, DrawnPlace(t, tSetup.tChart));
        support::DrawDirt(tPlace.dX, tPlace.dY, t, tPlane);
    }
    chart::Blur(tPlane, tCapture.dBlurSigma);
    const chart::Noise tNoise(chart::DerivedSeed(tCapture.nSeed, bSlave ? 1 : 0));
    Picture picture = {"study", tPlane.nWidth, tPlane.nHeight, {}};
    for (const float fLight : tPlane.aGrey) {
        const double dNoise = tCapture.dNoiseSigma * static_cast<double>(tNoise.At(picture.aGrey.size()));
        const long nGrey = std::lround(static_cast<double>(fLight) + dNoise);
        picture.aGrey.push_back(static_cast<unsigned char>(std::clamp(nGrey, 0L, 255L)));
    }
    return picture;
}

std::string DoubtsOf(const StudyPair& tPair, const Measurement& t) {
    std::string str;
    for (const Warning& tWarning : ReportOf(tPair.tMaster, tPair.tSlave, t, MeasuringSetup()).aWarnings)
        str += tWarning.bDoubt ? std::string(" ") + tWarning.szKind : "";
    return str;
}

} // namespace

StudyPair PairOf(unsigned int nPair, bool bDirt) {
    support::Random t(nPair);
    const auto Pose = [&] { return chart::Pose{t.Real(-1.5, 1.5), t.Real(-1.5, 1.5), t.Real(-1.5, 1.5)}; };
    const auto [nColumns, nRows] = kSizes[nPair % kSizes.size()];
    chart::PairSetup s;
    s.tMaster = chart::ScaledTo(s.tMaster, nColumns, nRows);
    s.tSlave = chart::ScaledTo(s.tSlave, nColumns, nRows);
    s.tMasterPose = Pose();
    const chart::Pose tSlave = Pose();
    s.tRelativePose = {tSlave.dRx - s.tMasterPose.dRx, tSlave.dRy - s.tMasterPose.dRy,
                       tSlave.dRz - s.tMasterPose.dRz};
    s.tChart.dInk = t.Real(20, 60);
    s.tChart.dPaper = s.tChart.dInk + t.Real(60, 170);
    s.tMasterCapture = {.aOcclusions = {},
                        .dBlurSigma = kBlurs[nPair / kNoises.size() % kBlurs.size()],
                        .dNoiseSigma = kNoises[nPair % kNoises.size()],
                        .nSeed = nPair};
    const int nPieces = bDirt ? t.Int(1, 2) : 0, nOnSlave = t.Int(0, 1) * nPieces;
    Picture tMaster = Shot(t, s, false, nPieces - nOnSlave), tSecond = Shot(t, s, true, nOnSlave);
    return {s.tMasterCapture.dNoiseSigma,
            s.tMasterCapture.dBlurSigma,
            {s.tRelativePose.dRx, s.tRelativePose.dRy, s.tRelativePose.dRz},
            std::move(tMaster),
            std::move(tSecond)};
}

StudyResult ResultOf(const StudyPair& tPair) {
    StudyResult result = {Measure(tPair.tMaster, tPair.tSlave), 0, {}, {}};
    const ChartMeasures tMeasures = ChartMeasuresOf(MeasuringSetup());
    const std::clock_t tStart = std::clock();
    ReadCamera(tPair.tMaster, tMeasures, KnownCorners(result.tFirst.tMaster));
    ReadCamera(tPair.tSlave, tMeasures, KnownCorners(result.tFirst.tSlave));
    result.dMilliseconds = 1e3 * static_cast<double>(std::clock() - tStart) / CLOCKS_PER_SEC;
    if (const std::optional<Angles>& o = result.tFirst.tPair.oRaw) {
        const auto& ad = tPair.adTrue;
        result.oErrorOfFirst =
            std::max({std::fabs(o->dRx - ad[0]), std::fabs(o->dRy - ad[1]), std::fabs(o->dRz - ad[2])});
        result.strDoubts = DoubtsOf(tPair, result.tFirst);
    }
    return result;
}

} // namespace reading

#include "tools/reading/pairs.h"

#include "chart/blur.h"
#include "chart/noise.h"
#include "measuring/parameters.h"
#include "report/report.h"
#include "support/dirt.h"

#include <ctime>

using namespace tools;

namespace reading {
namespace {

struct View {
    chart::Camera tCamera;
    chart::Pose tPose;
    std::uint64_t nNoise;
    int nPieces; // of dirt
};

// On a line of the chart, or so near that its edges and its paper are covered.
support::DirtPlace DrawnPlace(support::Random& t, const chart::Chart& tChart, const View& tView) {
    const double dAlong = t.Real(-1, 1), dBeside = t.Real(-9, 9);
    const double dX = tChart.dFrameHalfWidth, dY = tChart.dFrameHalfHeight;
    const std::array<chart::Point, 6> aPlaces = {{{dAlong * dX, dBeside - dY},
                                                  {dAlong * dX, dBeside + dY},
                                                  {dBeside - dX, dAlong * dY},
                                                  {dBeside + dX, dAlong * dY},
                                                  {dAlong * tChart.dHorizontalBarHalfLength, dBeside},
                                                  {dBeside, dAlong * tChart.dVerticalBarHalfLength}}};
    const chart::Point p = chart::ProjectPoint(tChart, tView.tCamera, tView.tPose,
                                               aPlaces[static_cast<std::size_t>(t.Int(0, 5))]);
    return {p.dX, p.dY};
}

Picture Shot(support::Random& t, const chart::Chart& tChart, const View& tView, double dNoise, double dBlur) {
    chart::Plane tPlane = chart::RenderScene(tChart, tView.tCamera, tView.tPose);
    for (int i = 0; i < tView.nPieces; ++i) {
        const support::DirtPlace tPlace = DrawnPlace(t, tChart, tView);
        support::DrawDirt(static_cast<support::Dirt>(t.Int(0, 4)), tPlace, t, tPlane);
    }
    chart::Blur(tPlane, dBlur);
    const chart::Noise tNoise(tView.nNoise);
    Picture picture = {"study", tPlane.nWidth, tPlane.nHeight, {}};
    picture.aGrey.reserve(tPlane.aGrey.size());
    for (std::size_t i = 0; i < tPlane.aGrey.size(); ++i)
        picture.aGrey.push_back(static_cast<unsigned char>(std::clamp(
            std::lround(static_cast<double>(tPlane.aGrey[i]) + dNoise * static_cast<double>(tNoise.At(i))),
            0L, 255L)));
    return picture;
}

double ProcessorSeconds() {
    timespec t = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

std::array<double, 3> Listed(const Angles& t) {
    return {t.dRx, t.dRy, t.dRz};
}

} // namespace

StudyPair PairOf(unsigned int nPair, bool bDirt) {
    support::Random t(nPair);
    const auto Pose = [&] { return chart::Pose{t.Real(-1.5, 1.5), t.Real(-1.5, 1.5), t.Real(-1.5, 1.5)}; };
    const chart::Pose tMaster = Pose(), tSlave = Pose();
    chart::Chart tChart;
    tChart.dInk = t.Real(20, 60);
    tChart.dPaper = tChart.dInk + t.Real(60, 170);
    const PictureSize tSize =
        std::array<PictureSize, 3>{{{1728, 972}, {1600, 1200}, {2104, 1560}}}[nPair % 3];
    const double dNoise = kNoises[nPair % kNoises.size()],
                 dBlur = kBlurs[nPair / kNoises.size() % kBlurs.size()];
    const int nPieces = bDirt ? t.Int(1, 2) : 0, nOnSlave = t.Int(0, 1);
    const auto Camera = [&](const chart::Camera& c) {
        return chart::ScaledTo(c, tSize.nColumns, tSize.nRows);
    };
    const View tFirst = {Camera(chart::DefaultMaster()), tMaster, 2ull * nPair, nOnSlave != 0 ? 0 : nPieces};
    const View tSecond = {Camera(chart::DefaultSlave()), tSlave, 2ull * nPair + 1,
                          nOnSlave != 0 ? nPieces : 0};
    StudyPair pair = {dNoise,
                      dBlur,
                      {tSlave.dRx - tMaster.dRx, tSlave.dRy - tMaster.dRy, tSlave.dRz - tMaster.dRz},
                      {},
                      {}};
    pair.tMaster = Shot(t, tChart, tFirst, dNoise, dBlur);
    pair.tSlave = Shot(t, tChart, tSecond, dNoise, dBlur);
    return pair;
}

StudyResult ResultOf(const StudyPair& tPair) {
    StudyResult result = {Measure(tPair.tMaster, tPair.tSlave), {}, 0};
    const ChartMeasures tMeasures = ChartMeasuresOf(DefaultParameters());
    const double dStart = ProcessorSeconds();
    ReadCamera(tPair.tMaster, tMeasures, KnownCorners(result.tFirst.tMaster));
    ReadCamera(tPair.tSlave, tMeasures, KnownCorners(result.tFirst.tSlave));
    result.dMilliseconds = 1e3 * (ProcessorSeconds() - dStart);
    for (const Warning& t : ReportOf(tPair.tMaster, tPair.tSlave, result.tFirst, kMaxDifference).aWarnings)
        if (t.bDoubt)
            result.aDoubts.emplace_back(t.szKind);
    return result;
}

std::optional<double> ErrorOfFirst(const StudyResult& tResult, const Angles& tTrue) {
    if (!tResult.tFirst.tPair.oRaw)
        return std::nullopt;
    double dError = 0;
    for (std::size_t n = 0; n < 3; ++n)
        dError = std::max(dError, std::fabs(Listed(*tResult.tFirst.tPair.oRaw)[n] - Listed(tTrue)[n]));
    return dError;
}

} // namespace reading

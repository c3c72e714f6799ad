// How long the measurement and its stages take, as multiples of copying both pictures' planes in the same
// run: times differ between machines and days, the multiples hardly do. And how often a call, once warm,
// makes the system hand out a page.

#include "Orvex_Alignment_Stages.h"
#include "bench/yardstick.h"

#include <cstdio>
#include <iostream>

namespace {

using benchmark::State;

constexpr int nCalls = 300; // of which the best counts

chart::Pair NoisyPair(int nColumns, int nRows) {
    chart::PairSetup t;
    t.tMaster = chart::ScaledTo(t.tMaster, nColumns, nRows);
    t.tSlave = chart::ScaledTo(t.tSlave, nColumns, nRows);
    t.tRelativePose = {0.6, -0.4, 0.8};
    t.tMasterCapture.dBlurSigma = t.tSlaveCapture.dBlurSigma = 0.8;
    t.tMasterCapture.dNoiseSigma = t.tSlaveCapture.dNoiseSigma = 2.0;
    return chart::RenderPair(t);
}

unsigned int MeasurePair(chart::Pair& t) {
    static std::vector<unsigned char> aCalibration(ORVEX_CALIBRATION_SIZE);
    double dRx = 0, dRy = 0, dRz = 0;
    _AFPROTECT tRecord;
    return Orvex_Alignment_ForAndroid(t.tMaster.aGrey.data(), t.tSlave.aGrey.data(), t.tMaster.nWidth,
                                      t.tMaster.nHeight, t.tSlave.nWidth, t.tSlave.nHeight, &dRx, &dRy, &dRz,
                                      aCalibration.data(), &tRecord);
}

void MeasureWhole(State& tState, chart::Pair tPair, bool bPasses) {
    if ((MeasurePair(tPair) == ORVEX_OK) != bPasses)
        return tState.SkipWithError("the pair did not end as it should");
    bench::Measure(tState, tPair, [&] { MeasurePair(tPair); });
}

void WholePair(State& tState) {
    MeasureWhole(tState, NoisyPair(static_cast<int>(tState.range(0)), static_cast<int>(tState.range(1))),
                 true);
}

// A master without chart, which the refined cross search finds out.
void FailingPair(State& tState) {
    chart::Pair t = NoisyPair(1728, 972);
    std::fill(t.tMaster.aGrey.begin(), t.tMaster.aGrey.end(), std::uint8_t{200});
    MeasureWhole(tState, std::move(t), false);
}

// The master of a pair and what the stages have left of it, each the next one's input.
struct Master {
    chart::Pair tPair = NoisyPair(1728, 972);
    unsigned char* pGrey = tPair.tMaster.aGrey.data();
    int nColumns = tPair.tMaster.nWidth, nRows = tPair.tMaster.nHeight;
    std::vector<unsigned char> aBinary = std::vector<unsigned char>(tPair.tMaster.aGrey.size());
    unsigned short auwCentre[2] = {};
    double dAngle = 0;
    float afCentre[2] = {}, afExtent[2] = {};
    int nSpan = 0;
    _POINTPOSITION at[4] = {};

    int CentreX() const { return static_cast<int>(afCentre[0]); }
    int CentreY() const { return static_cast<int>(afCentre[1]); }
    unsigned int Columns() const { return static_cast<unsigned int>(nColumns); }
    unsigned int Rows() const { return static_cast<unsigned int>(nRows); }

    bool Copy() {
        GetGValueFromRGB(pGrey, nColumns, nRows, aBinary.data());
        return true;
    }
    template <bool bRefine>
    bool Binarise() {
        return DualCamAlign_BinaryImage(pGrey, nColumns, nRows, 0.6, nullptr, aBinary.data(), 0.45, 0.45,
                                        true, auwCentre, bRefine) != 0;
    }
    template <bool bRefine>
    bool SearchCross() {
        return DualCamAlign_CalculateIntersectionAndAngle(aBinary.data(), pGrey, nColumns, nRows, &dAngle,
                                                          afCentre, &nSpan, nullptr, nullptr, nullptr, 0.45,
                                                          0.45, true, auwCentre, bRefine) == 0;
    }
    bool LocateFrame() {
        return DualCamAlign_CalImageFrame(pGrey, Columns(), Rows(), CentreX(), CentreY(), &at[0], &at[1],
                                          &at[2], &at[3], 1) == 0;
    }
    bool BinariseFrame() {
        return DualCamAlign_BinaryImageFrame(pGrey, aBinary.data(), Columns(), Rows(), CentreX(), CentreY(),
                                             at[0], at[1], at[2], at[3], 1) == 0;
    }
    bool MeasureCorners() {
        bool bFound = true;
        for (const auto Corner : {DualCamAlign_NewMeasureLTPnt, DualCamAlign_NewMeasureRTPnt,
                                  DualCamAlign_NewMeasureLDPnt, DualCamAlign_NewMeasureRDPnt})
            bFound = Corner(aBinary.data(), pGrey, Columns(), Rows(), CentreX(), CentreY(), at[0], at[1],
                            at[2], at[3], 1) == 0 &&
                     bFound;
        return bFound;
    }
    bool MeasureSides() { return DualCamAlign_NewMeasureSquareLength(afExtent, true) == 0; }
};

struct Stage {
    const char* szName;
    bool (Master::*Run)();
};

constexpr Stage atStages[] = {{"GreyPlane", &Master::Copy},
                              {"CentreWindow/coarse", &Master::Binarise<false>},
                              {"Cross/coarse", &Master::SearchCross<false>},
                              {"CentreWindow/refined", &Master::Binarise<true>},
                              {"Cross/refined", &Master::SearchCross<true>},
                              {"FrameLocation", &Master::LocateFrame},
                              {"FrameBinarisation", &Master::BinariseFrame},
                              {"Corners", &Master::MeasureCorners},
                              {"SideLengths", &Master::MeasureSides}};

// One stage of one camera, on what those before it have left.
void OneStage(State& tState) {
    const auto nStage = static_cast<std::size_t>(tState.range(0));
    tState.SetLabel(atStages[nStage].szName);
    Master t;
    DualCamAlign_LoadParameters_ForAndroid();
    for (std::size_t i = 0; i <= nStage; ++i)
        if (!(t.*atStages[i].Run)())
            return tState.SkipWithError("a stage failed");
    bench::Measure(tState, t.tPair, [&] { (t.*atStages[nStage].Run)(); });
}

void Timed(benchmark::internal::Benchmark* p) {
    p->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(nCalls);
}

BENCHMARK(WholePair)->Apply(Timed)->ArgNames({"columns", "rows"})->Args({1728, 972})->Args({4000, 3000});
BENCHMARK(FailingPair)->Apply(Timed);
BENCHMARK(OneStage)->Apply(Timed)->DenseRange(0, std::size(atStages) - 1);

} // namespace

int main(int nArguments, char** apszArguments) {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) // the library's lines; the table goes to stderr
        return 1;
    benchmark::Initialize(&nArguments, apszArguments);
    benchmark::AddCustomContext("build type", BUILD_TYPE);
    benchmark::AddCustomContext("compiler", COMPILER);
    benchmark::ConsoleReporter tReporter(benchmark::ConsoleReporter::OO_Tabular);
    tReporter.SetOutputStream(&std::cerr);
    tReporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&tReporter);
    return 0;
}

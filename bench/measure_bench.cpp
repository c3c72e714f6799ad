// How long the measurement takes, as a multiple of copying both pictures' planes once in the same run: times
// differ between machines and days, the multiples hardly do.

#include "Orvex_Alignment_Stages.h"
#include "chart/pair.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point t) {
    return std::chrono::duration<double>(Clock::now() - t).count();
}

chart::Pair NoisyPair() {
    chart::PairSetup t;
    t.tRelativePose = {0.6, -0.4, 0.8};
    t.tMasterCapture.dBlurSigma = t.tSlaveCapture.dBlurSigma = 0.8;
    t.tMasterCapture.dNoiseSigma = t.tSlaveCapture.dNoiseSigma = 2.0;
    return chart::RenderPair(t);
}

chart::Pair g_tPair = NoisyPair();

// Seconds of one copy of both planes: the best of many, which the rest of the machine disturbs least.
double CopySeconds() {
    std::vector<std::uint8_t> aTarget(g_tPair.tMaster.aGrey.size());
    double dBest = 1.0;
    for (int i = 0; i < 200; ++i) {
        const Clock::time_point tStart = Clock::now();
        for (const chart::Shot* const p : {&g_tPair.tMaster, &g_tPair.tSlave}) {
            std::memcpy(aTarget.data(), p->aGrey.data(), aTarget.size());
            benchmark::DoNotOptimize(aTarget.data());
            benchmark::ClobberMemory();
        }
        dBest = std::min(dBest, SecondsSince(tStart));
    }
    return dBest;
}

// Runs the body until the library has its figure and adds it as a multiple of the copy.
template <typename Body>
void Measure(benchmark::State& tState, Body&& Run) {
    static const double dCopy = CopySeconds();
    double dBest = 1.0;
    for (auto _ : tState) {
        const Clock::time_point tStart = Clock::now();
        Run();
        dBest = std::min(dBest, SecondsSince(tStart));
    }
    tState.counters["copies"] = dBest / dCopy;
}

void WholePair(benchmark::State& tState) {
    std::vector<unsigned char> aCalibration(ORVEX_CALIBRATION_SIZE);
    double dRx = 0, dRy = 0, dRz = 0;
    _AFPROTECT tRecord;
    Measure(tState, [&] {
        if (Orvex_Alignment_ForAndroid(g_tPair.tMaster.aGrey.data(), g_tPair.tSlave.aGrey.data(), 1728, 972,
                                       1728, 972, &dRx, &dRy, &dRz, aCalibration.data(), &tRecord) != 0)
            tState.SkipWithError("the pair was not measured");
    });
}

// One pass over the master's cross: binarisation of the window, then the search in it.
void CrossPass(benchmark::State& tState) {
    std::vector<unsigned char> aBinary(g_tPair.tMaster.aGrey.size());
    unsigned char* const pGrey = g_tPair.tMaster.aGrey.data();
    unsigned short uwCenter[2] = {864, 486};
    const bool bRefine = tState.range(0) != 0;
    double dAngle = 0;
    float afCentre[2];
    int nSpan = 0;
    DualCamAlign_LoadParameters_ForAndroid();
    Measure(tState, [&] {
        DualCamAlign_BinaryImage(pGrey, 1728, 972, 0.6, nullptr, aBinary.data(), 0.45, 0.45, true, uwCenter,
                                 bRefine);
        DualCamAlign_CalculateIntersectionAndAngle(aBinary.data(), pGrey, 1728, 972, &dAngle, afCentre,
                                                   &nSpan, nullptr, nullptr, nullptr, 0.45, 0.45, true,
                                                   uwCenter, bRefine);
    });
}

BENCHMARK(WholePair)->Unit(benchmark::kMillisecond);
BENCHMARK(CrossPass)->ArgName("refine")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int nArguments, char** apszArguments) {
    static_cast<void>(
        std::freopen("/dev/null", "w", stdout)); // the library's lines; the table goes to standard error
    benchmark::Initialize(&nArguments, apszArguments);
    benchmark::AddCustomContext("build type", BUILD_TYPE);
    benchmark::ConsoleReporter tReporter(benchmark::ConsoleReporter::OO_Tabular);
    tReporter.SetOutputStream(&std::cerr);
    tReporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&tReporter);
    return 0;
}

// What the benchmark measures with: the time of a body as a multiple of copying both pictures' planes.
#pragma once

#include "chart/pair.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <sys/resource.h>

namespace bench {

inline long MinorFaults() {
    rusage t = {};
    getrusage(RUSAGE_SELF, &t);
    return t.ru_minflt;
}

template <typename Body>
double Seconds(Body&& Run) {
    const auto tStart = std::chrono::steady_clock::now();
    Run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - tStart).count();
}

// Both planes of a pair, each with a buffer of its own to be copied into.
class PlaneCopy {
public:
    explicit PlaneCopy(const chart::Pair& t) : m_t(t), m_aMaster(t.tMaster.aGrey), m_aSlave(t.tSlave.aGrey) {}
    void Run() {
        std::memcpy(m_aMaster.data(), m_t.tMaster.aGrey.data(), m_aMaster.size());
        std::memcpy(m_aSlave.data(), m_t.tSlave.aGrey.data(), m_aSlave.size());
        benchmark::DoNotOptimize(m_aMaster.data());
        benchmark::DoNotOptimize(m_aSlave.data());
        benchmark::ClobberMemory();
    }

private:
    const chart::Pair& m_t;
    std::vector<std::uint8_t> m_aMaster, m_aSlave;
};

// Takes body and copy in turn, so that both see the same machine, and compares the best of each, which the
// rest of the machine disturbs least. A copy counts only behind another one: the body's own planes have
// displaced it. The first calls, which find nothing warm, do not count either.
template <typename Body>
void Measure(benchmark::State& tState, const chart::Pair& tPair, Body&& Run) {
    PlaneCopy tCopy(tPair);
    for (int i = 0; i < 3; ++i) {
        tCopy.Run();
        Run();
    }
    double dBest = 1.0, dBestCopy = 1.0;
    long nFaults = 0;
    for (auto _ : tState) {
        tCopy.Run();
        dBestCopy = std::min(dBestCopy, Seconds([&] { tCopy.Run(); }));
        const long nBefore = MinorFaults();
        const double dSeconds = Seconds(Run);
        nFaults += MinorFaults() - nBefore;
        dBest = std::min(dBest, dSeconds);
        tState.SetIterationTime(dSeconds);
    }
    tState.counters["copies"] = dBest / dBestCopy;
    tState.counters["copy_us"] = dBestCopy * 1e6;
    tState.counters["faults"] = static_cast<double>(nFaults) / static_cast<double>(tState.iterations());
}

} // namespace bench

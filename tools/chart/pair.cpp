#include "chart/pair.h"

#include "chart/noise.h"

namespace chart {

namespace {

constexpr std::uint64_t kSlaveStream = 1;

Shot Shoot(const Chart& tChart, const Camera& tCamera, const Truth& tTruth, const Capture& tCapture) {
    return {tCamera.nWidth, tCamera.nHeight, Render(tChart, tCamera, tTruth.tPose, tCapture), tTruth};
}

} // namespace

PairTruth TruthOf(const PairSetup& t) {
    return {Project(t.tChart, t.tMaster, t.tMasterPose),
            Project(t.tChart, t.tSlave, t.tMasterPose + t.tRelativePose)};
}

Pair RenderPair(const PairSetup& tSetup) {
    const PairTruth tTruth = TruthOf(tSetup);
    Capture tSlaveCapture = tSetup.tSlaveCapture;
    tSlaveCapture.nSeed = DerivedSeed(tSlaveCapture.nSeed, kSlaveStream);
    return {Shoot(tSetup.tChart, tSetup.tMaster, tTruth.tMaster, tSetup.tMasterCapture),
            Shoot(tSetup.tChart, tSetup.tSlave, tTruth.tSlave, tSlaveCapture)};
}

} // namespace chart

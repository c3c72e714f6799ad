#include "chart/pair.h"

#include "chart/noise.h"

namespace chart {

namespace {

constexpr std::uint64_t kSlaveStream = 1;

Shot Shoot(const Chart& tChart, const Camera& tCamera, const Pose& tPose, const Capture& tCapture) {
    return {tCamera.nWidth, tCamera.nHeight, Render(tChart, tCamera, tPose, tCapture),
            Project(tChart, tCamera, tPose)};
}

} // namespace

Pair RenderPair(const PairSetup& tSetup) {
    Capture tSlaveCapture = tSetup.tSlaveCapture;
    tSlaveCapture.nSeed = DerivedSeed(tSlaveCapture.nSeed, kSlaveStream);
    return {Shoot(tSetup.tChart, tSetup.tMaster, tSetup.tMasterPose, tSetup.tMasterCapture),
            Shoot(tSetup.tChart, tSetup.tSlave, tSetup.tMasterPose + tSetup.tRelativePose, tSlaveCapture)};
}

} // namespace chart

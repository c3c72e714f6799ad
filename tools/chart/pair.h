#pragma once

#include "chart/projection.h"
#include "chart/render.h"

#include <cstdint>
#include <vector>

namespace chart {

// One chart, seen by two cameras. The slave stands at master pose + relative pose, angle by angle: the
// relative pose is what a measurement of the pair should return.
struct PairSetup {
    Chart tChart;
    Camera tMaster = DefaultMaster();
    Camera tSlave = DefaultSlave();
    Pose tMasterPose;
    Pose tRelativePose;
    Capture tMasterCapture;
    Capture tSlaveCapture; // the slave's noise is its own even where both seeds are equal
};

struct Shot {
    int nWidth;
    int nHeight;
    std::vector<std::uint8_t> aGrey; // row by row
    Truth tTruth;
};

struct Pair {
    Shot tMaster;
    Shot tSlave;
};

struct PairTruth {
    Truth tMaster;
    Truth tSlave;
};

// What RenderPair will tell, without the pictures.
PairTruth TruthOf(const PairSetup& tSetup);

Pair RenderPair(const PairSetup& tSetup);

} // namespace chart

#pragma once

#include "basics/geometry.h"
#include "chart/blur.h"
#include "chart/pair.h"
#include "pictures/picture_size.h"

#include <string>

namespace tools {

// The renderer's range for each camera and axis, degrees.
constexpr double kMaxAngle = 45.0;

constexpr double kMaxNoise = 255.0;               // grey levels
constexpr double kMaxBlur = chart::kMaxBlurSigma; // px

// What a pair is rendered with, both cameras alike.
struct PairOptions {
    chart::Chart tChart;
    chart::Camera tMasterCamera = chart::DefaultMaster(), tSlaveCamera = chart::DefaultSlave();
    Angles tMaster, tRelative;
    double dBlur =
        1.0;           // px; edges sharper than a lens draws them cost the measurement hundredths of a degree
    double dNoise = 0; // grey levels
    double dVignetting = 0; // share
    double dGain = 1;       // factor
    std::uint64_t nSeed = 1;
    std::string strFormat = "pgm"; // of the pictures, or "png"
};

// Another size, with the same field of view.
void ScaleTo(PictureSize size, PairOptions& options);

chart::PairSetup SetupOf(const PairOptions& tOptions);

} // namespace tools

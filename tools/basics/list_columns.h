#pragma once

#include <array>

namespace tools {

// What names a pair in a list and in its results.
constexpr std::array<const char*, 4> kPairColumns = {"id", "master", "slave", "calibration"};

// The known rotation of a rendered pair, degrees.
constexpr std::array<const char*, 3> kTruthColumns = {"true_rx_deg", "true_ry_deg", "true_rz_deg"};

} // namespace tools

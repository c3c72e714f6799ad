#pragma once

#include "Orvex_Alignment.h"

#include <string>

namespace tools {

// The least that the library needs.
constexpr std::size_t kCalibrationBytes = ORVEX_CALIBRATION_SIZE;

// Reads a calibration memory image of at least kCalibrationBytes bytes. Throws ToolError.
std::string ReadCalibration(const std::string& strFile);

} // namespace tools

#pragma once

#include <cstddef>
#include <string>

namespace tools {

// The least that the library needs.
constexpr std::size_t kCalibrationBytes = 2915;

// Reads a calibration memory image of at least kCalibrationBytes bytes. Throws ToolError.
std::string ReadCalibration(const std::string& strFile);

} // namespace tools

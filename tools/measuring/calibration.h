#ifndef ORVEX_TOOLS_MEASURING_CALIBRATION_H
#define ORVEX_TOOLS_MEASURING_CALIBRATION_H

#include "Orvex_Alignment.h"

#include <string>

namespace tools {

// The least that the library needs.
constexpr std::size_t kCalibrationBytes = ORVEX_CALIBRATION_SIZE;

// Reads a calibration memory image of at least kCalibrationBytes bytes. Throws ToolError.
std::string ReadCalibration(const std::string& strFile);

} // namespace tools

#endif

#ifndef ORVEX_TOOLS_MEASURING_CALIBRATION_H
#define ORVEX_TOOLS_MEASURING_CALIBRATION_H

#include <cstdint>
#include <string>

namespace tools {

// Reads a calibration memory image of at least ORVEX_CALIBRATION_SIZE bytes. Throws ToolError.
std::string ReadCalibration(const std::string& strFile);

// What the option --calibration of a command asks for.
std::string CalibrationHelp();

// An image of that size for rendered pairs: bytes of the seed's own, with lens positions where a module has
// them, the second of a pair beyond the first.
std::string MadeUpCalibration(std::uint64_t nSeed);

} // namespace tools

#endif

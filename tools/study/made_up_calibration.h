#ifndef ORVEX_TOOLS_STUDY_MADE_UP_CALIBRATION_H
#define ORVEX_TOOLS_STUDY_MADE_UP_CALIBRATION_H

#include <cstdint>
#include <string>

namespace tools {

// A calibration memory image for rendered pairs: bytes of the seed's own, with lens positions where a module
// has them, the second of a pair beyond the first.
std::string MadeUpCalibration(std::uint64_t nSeed);

} // namespace tools

#endif

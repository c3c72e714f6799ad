#pragma once

#include "reading/camera_reading.h"

#include <string>

namespace tools {

// "the top side", "the top side's left half", "the horizontal bar"
std::string NameOfSide(std::size_t nSide);
std::string NameOfLine(std::size_t nLine);

// What was found in place of a reading, and what to do; the last sentence without its full stop.
std::string DescribeMissing(const ReadingOutcome& tOutcome);

} // namespace tools

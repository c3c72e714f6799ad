#pragma once

#include "reading/line_reading.h"

namespace tools {

// The lines of a picture, all equally sharp, through their centres.
//
// A centre between half levels errs with its line's place between the pixels, by up to some hundredths of a
// px. A line nearly along the pixels errs alike all along, so that its scatter does not tell. The centre by
// light does not err that way: what the two differ by, over all lines of the picture, is the error, and the
// centres are freed of it.
std::vector<LineReading> ReadingsOf(std::span<const LineCentres> aLines);

} // namespace tools

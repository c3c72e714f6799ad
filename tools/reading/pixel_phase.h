#pragma once

#include "reading/line_reading.h"

namespace tools {

// A centre between half levels errs with its line's place between the pixels, by up to some hundredths of a
// px. A line nearly along the pixels errs alike all along, so that its scatter does not tell. The centre by
// light does not err that way: what the two differ by, over all lines of a picture, is the error.
struct PhaseError {
    std::array<double, 3> adAmplitudes = {}; // px, of 1, 2 and 3 waves to a px
};

// Of a picture, all of whose lines are equally sharp.
PhaseError PhaseErrorOf(std::span<const LineCentres* const> apLines);

// The line through the centres freed of it.
LineReading ReadingOf(const LineCentres& tCentres, const PhaseError& tError);

} // namespace tools

#pragma once

#include "trust/warnings.h"

namespace tools {

// Degrees by which the library's angle and the second reading's may differ, twice the latter's standard
// uncertainty counted: an angle that is off by more may else seem to differ by less. Clean pairs stay far
// below it; what turns an angle by more is worth a second look.
constexpr double kMaxDifference = 0.05;

// Degrees. A clean picture's angles are known several times better.
constexpr double kMaxUncertainty = 0.015;

// A measured pair as a whole: whether both readings agree, whether they are two pictures.
struct MeasuredPair {
    const Measurement& tMeasurement;
    const Picture &tMaster, &tSlave;
    double dMaxDifference; // degrees
};

// What speaks against it, the gravest first; of a pair that was not measured what may be the cause.
std::vector<Warning> WarningsOf(const MeasuredPair& tPair);

// A warning's text with N in place of every number; nothing for another kind.
std::optional<std::string> GeneralPairText(std::string_view strKind);

} // namespace tools

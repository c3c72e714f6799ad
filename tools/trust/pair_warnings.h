#pragma once

#include "trust/warnings.h"

namespace tools {

// A measured pair as a whole: whether both readings agree, whether they are two pictures.
struct MeasuredPair {
    const Measurement& tMeasurement;
    const Picture &tMaster, &tSlave;
    const MeasuringSetup& tSetup;
};

// What speaks against it, the gravest first; of a pair that was not measured what may be the cause.
std::vector<Warning> WarningsOf(const MeasuredPair& tPair);

// A warning's text with N in place of every number; nothing for another kind.
std::optional<std::string> GeneralPairText(std::string_view strKind);

} // namespace tools

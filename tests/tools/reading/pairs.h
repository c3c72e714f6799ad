#pragma once

#include "chart/pair.h"
#include "measuring/measurement.h"
#include "reading/angles.h"

namespace reading {

// What the pairs vary in: one of these noises and blurs each in turn.
inline constexpr std::array<double, 5> kNoises = {0.5, 1, 2, 4, 6};
inline constexpr std::array<double, 4> kBlurs = {0.4, 0.8, 1.4, 2};

struct StudyPair {
    double dNoise, dBlur;
    tools::Angles tTrue;
    tools::Picture tMaster, tSlave;
};

// Both cameras tilted by up to 1.5 degrees, in one of three sizes, with a contrast of 60 to 170 grey levels.
// The same number is the same pair. With dirt: one or two pieces on one of the pictures.
StudyPair PairOf(unsigned int nPair, bool bDirt);

// What is measured of a pair, and what speaks against it.
struct StudyResult {
    tools::Measurement tFirst;
    std::vector<std::string> aDoubts; // kinds of warnings
    double dMilliseconds;             // of processor time for the second reading
};

StudyResult ResultOf(const StudyPair& tPair);

// By what the first result misses the truth, on the axis where it is largest. Nothing if it was not measured.
std::optional<double> ErrorOfFirst(const StudyResult& tResult, const tools::Angles& tTrue);

} // namespace reading

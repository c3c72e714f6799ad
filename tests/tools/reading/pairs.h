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

// Both results of a pair.
struct StudyResult {
    tools::Measurement tFirst;
    std::optional<tools::UncertainAngles> oSecond;
    std::array<tools::ReadingOutcome, 2> aReadings;
    double dMilliseconds; // of processor time for the second
};

StudyResult ResultOf(const StudyPair& tPair);

// What speaks against the first result's angles; empty for nothing.
std::vector<std::string> DoubtsOf(const StudyResult& tResult);

// By what the first result misses the truth, on the axis where it is largest. Nothing if it was not measured.
std::optional<double> ErrorOfFirst(const StudyResult& tResult, const tools::Angles& tTrue);

} // namespace reading

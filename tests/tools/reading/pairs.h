#pragma once

#include "measuring/measurement.h"
#include "reading/angles.h"

namespace reading {

// With any noise, blur and contrast, both cameras tilted by up to 1.5 degrees, in one of three sizes.
struct StudyPair {
    double dNoise, dBlur;
    std::array<double, 3> adTrue; // angles, degrees
    tools::Picture tMaster, tSlave;
};

// The same number is the same pair. With dirt: one or two pieces on one of the pictures.
StudyPair PairOf(unsigned int nPair, bool bDirt);

// What is measured of a pair, and what speaks against it.
struct StudyResult {
    tools::Measurement tFirst;
    double dMilliseconds;                // of processor time for the second reading
    std::optional<double> oErrorOfFirst; // of the angles, on the axis where it is largest, degrees
    std::string strDoubts;               // kinds of warnings; empty for none
};

StudyResult ResultOf(const StudyPair& tPair);

} // namespace reading

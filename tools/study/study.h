#pragma once

#include "study/pair_options.h"

#include <optional>
#include <string>

namespace tools {

// Many pairs whose angles are drawn uniformly around those of one setup, noise and blur from its own upwards.
struct Study {
    std::string strFolder;
    PairOptions tCentre;                       // its seed is that of angles, noise and calibration images
    std::size_t nCount = 0;                    // modules, each with angles of its own
    std::size_t nRepeats = 1;                  // pairs of one module, each with noise of its own
    double dRange = 1.5, dMasterRange = 0;     // degrees to both sides
    double dDecentring = 0;                    // px to both sides, of each camera along both axes
    std::optional<double> oMaxNoise, oMaxBlur; // of both cameras: grey levels, px; none: all have the lowest
    bool bOverwrite = false;                   // replace files that are there with other content
};

struct StudyOutcome {
    std::string strList; // file, ready for batch
    int nSignal;         // that stopped it, or 0
    std::size_t nPairs;  // there
};

// Writes each pair into a folder of its own and, when all are there, the list with their true angles. A list
// that is there goes before the first pair changes. Throws ToolError.
StudyOutcome WriteStudy(const Study& tStudy);

} // namespace tools

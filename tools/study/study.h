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
    std::size_t nJobs = 1;                     // pairs rendered at once

    std::size_t Pairs() const { return nCount * nRepeats; }
};

struct StudyRoom {
    std::uintmax_t nNeeded; // bytes of the whole study; about so many where the pictures are compressed
    std::uintmax_t nFree;   // where it is to lie
};

// "67.2 MB"
std::string RoomText(std::uintmax_t nBytes);

// Throws ToolError where there is less than what is not there yet needs.
StudyRoom RoomFor(const Study& tStudy);

struct StudyOutcome {
    std::string strList; // file, ready for batch once there
    int nSignal;         // that stopped it, or 0
    std::size_t nPairs;  // there
};

// Writes each pair into a folder of its own and, when all are there, the list with their true angles. A list
// that is there goes before the first pair changes. Throws ToolError.
StudyOutcome WriteStudy(const Study& tStudy);

} // namespace tools

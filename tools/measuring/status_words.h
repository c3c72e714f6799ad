#pragma once

#include <string>

namespace tools {

// The steps of a measurement in their order. A camera passes all up to the corners before the next camera
// starts; the last ones judge both.
enum class Stage {
    kEntry,
    kCentreSearch,
    kCross,
    kFrameLocation,
    kFrameBinarisation,
    kCornerPoints,
    kAngles,
    kAngleRange,
    kComplete,
};

struct StageWords {
    const char* szName;
    const char* szLookedFor; // empty where nothing is searched
};

const StageWords& DescribeStage(Stage tStage);

// One status in the words of the person at the station.
struct StatusWords {
    unsigned int nStatus;
    const char* szName; // as in the library's header
    Stage tStage;
    const char* szFound; // what was, or was not, found
    const char* szTry;   // empty where there is nothing to mend
};

// A status that the table does not know gets a row that says so.
const StatusWords& DescribeStatus(unsigned int nStatus);

// A status as service documents write it: 0x1010006.
std::string HexOf(unsigned int nStatus);

} // namespace tools

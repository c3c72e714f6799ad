#pragma once

#include "measuring/record_reading.h"

#include <vector>

namespace tools {

// A reading in the words of a service engineer.
struct RecordJudgement {
    bool bAccepted;
    const char* szStatusName; // as in the library's header
    std::string strFound;
    const char* szTry;                       // empty where there is nothing to mend
    std::vector<std::string> aWarnings = {}; // of an accepted record
};

RecordJudgement JudgementOf(const RecordReading& tReading);

} // namespace tools

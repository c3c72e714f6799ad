#ifndef ORVEX_TOOLS_RECORD_JUDGEMENT_H
#define ORVEX_TOOLS_RECORD_JUDGEMENT_H

#include "basics/exit_codes.h"
#include "measuring/record_reading.h"

#include <vector>

namespace tools {

// A reading in the words of a service engineer.
struct RecordJudgement {
    ExitCode tExit;
    const char* szStatusName; // as in the library's header
    std::string strFound;
    const char* szTry;                       // empty where there is nothing to mend
    std::vector<std::string> aWarnings = {}; // of an accepted record
};

RecordJudgement JudgementOf(const RecordReading& t);

// The checksum that the record should have: the sum of the bytes between version and checksum, modulo 256.
unsigned int SumOf(const _AFPROTECT& t);

} // namespace tools

#endif

#pragma once

#include "basics/exit_codes.h"

#include <string>
#include <vector>

namespace tools {

struct ExitMeaning {
    ExitCode tExit;
    std::string strMeaning;
};

// The verdicts on a pair, each meaning behind its exit code.
std::vector<ExitMeaning> VerdictExits();

// The closing section of a command's help: its own answers, wrong usage, and the signals, of which szStopped
// says what they leave.
std::string ExitCodesHelp(std::vector<ExitMeaning> aAnswers,
                          const char* szStopped = "no file is left half-written");

} // namespace tools

#ifndef ORVEX_TOOLS_COMMANDS_RECORD_H
#define ORVEX_TOOLS_COMMANDS_RECORD_H

#include "basics/exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Adds "record", which leaves the program's exit code in tExit.
void AddRecordCommand(CLI::App& tApp, ExitCode& tExit);

} // namespace tools

#endif

#ifndef ORVEX_TOOLS_COMMANDS_BATCH_H
#define ORVEX_TOOLS_COMMANDS_BATCH_H

#include "basics/exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Adds "batch", which leaves the program's exit code in tExit.
void AddBatchCommand(CLI::App& tApp, ExitCode& tExit);

} // namespace tools

#endif

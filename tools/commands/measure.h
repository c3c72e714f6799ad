#ifndef ORVEX_TOOLS_COMMANDS_MEASURE_H
#define ORVEX_TOOLS_COMMANDS_MEASURE_H

#include "basics/exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Adds "measure", which leaves the program's exit code in tExit.
void AddMeasureCommand(CLI::App& tApp, ExitCode& tExit);

} // namespace tools

#endif

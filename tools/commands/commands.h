#pragma once

#include "basics/exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Each adds its command, which leaves the program's exit code in tExit.
void AddMeasureCommand(CLI::App& tApp, ExitCode& tExit);
void AddRecordCommand(CLI::App& tApp, ExitCode& tExit);
// Only for a batch's workers; help does not tell it.
void AddMeasureEachCommand(CLI::App& tApp, ExitCode& tExit);
void AddBatchCommand(CLI::App& tApp, ExitCode& tExit);
void AddRenderCommand(CLI::App& tApp, ExitCode& tExit);
void AddParametersCommand(CLI::App& tApp, ExitCode& tExit);
void AddChartCommand(CLI::App& tApp, ExitCode& tExit);

} // namespace tools

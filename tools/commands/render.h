#ifndef ORVEX_TOOLS_COMMANDS_RENDER_H
#define ORVEX_TOOLS_COMMANDS_RENDER_H

#include "basics/exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Adds "render", which leaves the program's exit code in tExit.
void AddRenderCommand(CLI::App& tApp, ExitCode& tExit);

} // namespace tools

#endif

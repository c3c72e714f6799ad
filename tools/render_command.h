#ifndef ORVEX_TOOLS_RENDER_COMMAND_H
#define ORVEX_TOOLS_RENDER_COMMAND_H

#include "exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Adds "render", which leaves the program's exit code in tExit.
void AddRenderCommand(CLI::App& tApp, ExitCode& tExit);

} // namespace tools

#endif

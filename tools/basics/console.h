#ifndef ORVEX_TOOLS_BASICS_CONSOLE_H
#define ORVEX_TOOLS_BASICS_CONSOLE_H

#include <string>

namespace tools {

// Writes to standard output. Throws ToolError if the text does not arrive, as on a full disk.
void Print(const std::string& str);

// One word for the shell, quoted where its characters ask for it and harmless on the terminal.
std::string ShellWord(const std::string& str);

} // namespace tools

#endif

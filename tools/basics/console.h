#pragma once

#include <string>

namespace tools {

// Writes to standard output. Throws ToolError if the text does not arrive, as on a full disk.
void Print(const std::string& str);

// Writes to standard error, where nobody may listen.
void PrintAside(const std::string& str);

// Tells the user something there: "orvex-align: MESSAGE", which ends without a line break.
void Tell(const std::string& strMessage);

// One word for the shell, quoted where its characters ask for it and harmless on the terminal.
std::string ShellWord(const std::string& str);

// The program as it was called, one word for the shell: what commands begin with that people copy.
std::string CalledAs();

} // namespace tools

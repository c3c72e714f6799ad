#pragma once

#include "basics/exit_codes.h"

#include <CLI/CLI.hpp>

namespace tools {

// Help in the form of a manual page. A command's description starts with a line, a sentence of what it does;
// paragraphs about it follow. Its footer holds the sections after the options.
class ManPage : public CLI::Formatter {
public:
    std::string make_help(const CLI::App* pApp, std::string strName, CLI::AppFormatMode tMode) const override;
};

// The section of examples: each is what is typed behind the program.
std::string ExamplesHelp(std::initializer_list<const char*> aszCommands);

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

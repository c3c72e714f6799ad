#ifndef ORVEX_TOOLS_HELP_PAGE_H
#define ORVEX_TOOLS_HELP_PAGE_H

#include <CLI/CLI.hpp>

namespace tools {

// Lays out --help like a page of a manual. Of a command's description the first line goes beside its name and
// the rest becomes a section; its footer holds the last sections, examples and exit codes.
class HelpPage : public CLI::Formatter {
public:
    std::string make_help(const CLI::App* pApp, std::string strName, CLI::AppFormatMode tMode) const override;
};

} // namespace tools

#endif

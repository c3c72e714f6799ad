#pragma once

#include "basics/harmless_text.h"

#include <stdexcept>
#include <string>

namespace tools {

// A file that cannot be read, written or used. Says which file, what is wrong with it and what to do, each in
// one line and harmless, whatever names it quotes.
class ToolError : public std::runtime_error {
public:
    ToolError(const std::string& strFile, const std::string& strWhat, const std::string& strToDo)
        : std::runtime_error((strFile.empty() ? "a file without a name" : Harmless(strFile)) + ": " +
                             Harmless(strWhat) + ".\n  " + Harmless(strToDo) + ".") {}
};

} // namespace tools

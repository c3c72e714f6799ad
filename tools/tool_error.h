#ifndef ORVEX_TOOLS_TOOL_ERROR_H
#define ORVEX_TOOLS_TOOL_ERROR_H

#include <stdexcept>
#include <string>

namespace tools {

// A file that cannot be read, written or used. Says which file, what is wrong with it and what to do.
class ToolError : public std::runtime_error {
public:
    ToolError(const std::string& strFile, const std::string& strWhat, const std::string& strToDo)
        : std::runtime_error((strFile.empty() ? "a file without a name" : strFile) + ": " + strWhat +
                             ".\n  " + strToDo + ".") {}
};

} // namespace tools

#endif

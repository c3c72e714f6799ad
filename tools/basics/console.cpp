#include "basics/console.h"

#include "basics/harmless_text.h"
#include "basics/tool_error.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fmt/format.h>

namespace tools {
namespace {

// In the shell's $'...', which takes any byte by its number.
std::string QuotedByNumbers(const std::string& str) {
    std::string strWord = "$'";
    for (const char c : str) {
        const bool bPlain = c >= ' ' && c <= '~' && c != '\'' && c != '\\';
        strWord += bPlain ? std::string(1, c) : fmt::format("\\{:03o}", static_cast<unsigned char>(c));
    }
    return strWord + "'";
}

} // namespace

void Print(const std::string& str) {
    if (std::fwrite(str.data(), 1, str.size(), stdout) != str.size() || std::fflush(stdout) != 0)
        throw ToolError("standard output",
                        std::string("the result could not be written (") + std::strerror(errno) + ")",
                        "Check where the output goes and whether there is space left");
}

void PrintAside(const std::string& str) {
    std::fputs(str.c_str(), stderr);
}

void Tell(const std::string& strMessage) {
    PrintAside("orvex-align: " + strMessage + "\n");
}

std::string ShellWord(const std::string& str) {
    constexpr char kPlain[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./,:=@%+-";
    if (!str.empty() && str.find_first_not_of(kPlain) == str.npos)
        return str;
    if (Harmless(str) != str)
        return QuotedByNumbers(str);
    std::string strWord = "'";
    for (const char c : str)
        strWord += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return strWord + "'";
}

std::string CalledAs() {
    return ShellWord(program_invocation_name);
}

} // namespace tools

#ifndef ORVEX_TOOLS_BASICS_EXIT_CODES_H
#define ORVEX_TOOLS_BASICS_EXIT_CODES_H

#include <array>
#include <span>
#include <string>

namespace tools {

// What a station's script acts on.
enum ExitCode {
    kWithinRange = 0,
    kDone = 0, // of commands that measure nothing
    kAccepted = 0,
    kOutOfRange = 1,
    kNotMeasured = 2,
    kRefused = 2, // a record
    kUnfitFile = 3,
    kWrongUsage = 64, // as sysexits.h has it, clear of the answers
    kSignal = 128,    // plus the number of the signal that stopped the program, as shells have it
};

struct ExitMeaning {
    int nExit;
    const char* szMeaning;
};

constexpr ExitMeaning kHungUp = {kSignal + 1,
                                 "stopped by the terminal's end (SIGHUP); no file is left half-written"};
constexpr ExitMeaning kInterrupted = {kSignal + 2, "stopped by Ctrl-C (SIGINT), likewise"};
constexpr ExitMeaning kTerminated = {kSignal + 15, "stopped by SIGTERM, likewise"};

constexpr std::array<ExitMeaning, 8> kMeasureExits = {{
    {kWithinRange, "measured, all angles within range"},
    {kOutOfRange, "measured, an angle out of range"},
    {kNotMeasured, "the chart could not be measured"},
    {kUnfitFile, "a file could not be read or written, or does not fit"},
    {kWrongUsage, "wrong usage"},
    kHungUp,
    kInterrupted,
    kTerminated,
}};

// tExit is one of them.
const char* MeaningOf(ExitCode tExit, std::span<const ExitMeaning> aMeanings);

// The closing section of a command's help.
std::string ExitCodesHelp(std::span<const ExitMeaning> aMeanings);

} // namespace tools

#endif

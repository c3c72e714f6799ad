#include "exit_codes.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace tools {

const char* MeaningOf(ExitCode tExit, std::span<const ExitMeaning> aMeanings) {
    return std::ranges::find(aMeanings, tExit, &ExitMeaning::tExit)->szMeaning;
}

std::string ExitCodesHelp(std::span<const ExitMeaning> aMeanings) {
    std::ostringstream tHelp;
    tHelp << "EXIT CODES\n";
    for (const ExitMeaning& t : aMeanings)
        tHelp << std::setw(4) << t.tExit << "  " << t.szMeaning << '\n';
    return tHelp.str();
}

} // namespace tools

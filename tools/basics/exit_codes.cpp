#include "basics/exit_codes.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace tools {

const char* MeaningOf(ExitCode tExit, std::span<const ExitMeaning> aMeanings) {
    return std::ranges::find(aMeanings, tExit, &ExitMeaning::nExit)->szMeaning;
}

std::string ExitCodesHelp(std::span<const ExitMeaning> aMeanings) {
    std::ostringstream tHelp;
    tHelp << "EXIT CODES\n";
    for (const ExitMeaning& t : aMeanings)
        tHelp << std::setw(7) << t.nExit << "  " << t.szMeaning << '\n';
    return tHelp.str();
}

} // namespace tools

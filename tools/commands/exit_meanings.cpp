#include "commands/exit_meanings.h"

#include "measuring/verdict.h"

#include <csignal>
#include <fmt/format.h>

namespace tools {

std::vector<ExitMeaning> VerdictExits() {
    std::vector<ExitMeaning> a;
    for (const VerdictWords& tVerdict : kVerdicts)
        if (tVerdict.szLabel != nullptr)
            a.push_back({tVerdict.tExit, tVerdict.szMeaning});
    return a;
}

std::string ExitCodesHelp(std::vector<ExitMeaning> aAnswers, const char* szStopped) {
    aAnswers.insert(aAnswers.end(), {{ExitCode::kWrongUsage, "wrong usage"},
                                     {StoppedBy(SIGHUP),
                                      fmt::format("stopped by the terminal's end (SIGHUP); {}", szStopped)},
                                     {StoppedBy(SIGINT), "stopped by Ctrl-C (SIGINT), likewise"},
                                     {StoppedBy(SIGTERM), "stopped by SIGTERM, likewise"}});
    std::string str = "EXIT CODES\n";
    for (const ExitMeaning& tMeaning : aAnswers)
        str += fmt::format("{:>7}  {}\n", static_cast<int>(tMeaning.tExit), tMeaning.strMeaning);
    return str;
}

} // namespace tools

#include "commands/help.h"

#include "basics/console.h"
#include "basics/text_table.h"
#include "measuring/verdict.h"

#include <cctype>
#include <csignal>
#include <fmt/format.h>

namespace tools {
namespace {

constexpr std::size_t kIndent = 4, kDeepIndent = 8;

std::string Indented(const std::string& str, std::size_t nColumns) {
    return std::string(nColumns, ' ') + Wrapped(str, nColumns) + "\n";
}

std::string FirstLine(const std::string& str) {
    return str.substr(0, str.find('\n'));
}

// The first line's sentence as manual pages have it behind a name: "measures a pair".
std::string Purpose(const CLI::App& tApp) {
    std::string str = FirstLine(tApp.get_description());
    if (str.ends_with('.'))
        str.pop_back();
    if (!str.empty())
        str.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(str.front())));
    return str;
}

std::string Name(const CLI::App& tApp) {
    return tApp.get_parent() == nullptr ? tApp.get_name() : Name(*tApp.get_parent()) + " " + tApp.get_name();
}

// "--jobs N", "MASTER"
std::string Usage(const CLI::Option& option) {
    if (option.get_positional())
        return option.get_name(true);
    const std::string strType = option.get_type_size() == 0 ? "" : option.get_type_name();
    return option.get_lnames().empty()
               ? option.get_name()
               : "--" + option.get_lnames().front() + (strType.empty() ? "" : " " + strType);
}

std::string Synopsis(const CLI::App& tApp) {
    std::string strRequired, strOthers;
    for (const CLI::Option* const p : tApp.get_options())
        if (p->get_required())
            strRequired += " " + Usage(*p);
        else
            strOthers += " [" + Usage(*p) + "]";
    const bool bHasCommands = !tApp.get_subcommands({}).empty();
    return "SYNOPSIS\n" +
           Indented(Name(tApp) + (bHasCommands ? " COMMAND ..." : "") + strRequired + strOthers, kIndent);
}

std::string Description(const CLI::App& tApp) {
    std::string str, strRest = tApp.get_description();
    for (std::size_t n = 0; (n = strRest.find('\n')) != strRest.npos;) {
        strRest = strRest.substr(n + 1);
        str += (str.empty() ? "\nDESCRIPTION\n" : "\n") + Indented(FirstLine(strRest), kIndent);
    }
    return str;
}

std::string Commands(const CLI::App& tApp) {
    std::string str;
    // One without a group is none for people.
    for (const CLI::App* const p :
         tApp.get_subcommands([](const CLI::App* t) { return !t->get_group().empty(); }))
        str += (str.empty() ? "\nCOMMANDS\n" : "") + Indented(p->get_name(), kIndent) +
               Indented(Purpose(*p), kDeepIndent);
    return str;
}

std::string Section(const char* szHeading, const CLI::App& tApp, bool bPositional) {
    std::string str;
    for (const CLI::Option* const p : tApp.get_options()) {
        if (p->get_positional() != bPositional)
            continue;
        const std::string strDefault =
            p->get_default_str().empty() ? "" : ". Default " + p->get_default_str();
        const std::string strShort = p->get_snames().empty() ? "" : "-" + p->get_snames().front() + ", ";
        str += Indented(strShort + Usage(*p), kIndent) +
               Indented(p->get_description() + strDefault + ".", kDeepIndent);
    }
    return str.empty() ? "" : std::string("\n") + szHeading + "\n" + str;
}

} // namespace

std::string ManPage::make_help(const CLI::App* pApp, std::string, CLI::AppFormatMode) const {
    return "NAME\n" + Indented(Name(*pApp) + " - " + Purpose(*pApp), kIndent) + "\n" + Synopsis(*pApp) +
           Description(*pApp) + Commands(*pApp) + Section("ARGUMENTS", *pApp, true) +
           Section("OPTIONS", *pApp, false) + "\n" + pApp->get_footer();
}

std::string ExamplesHelp(std::initializer_list<const char*> aszCommands) {
    std::string str = "EXAMPLES\n";
    for (const char* const sz : aszCommands)
        str += std::string(kIndent, ' ') + CalledAs() + " " + sz + "\n";
    return str + "\n";
}

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

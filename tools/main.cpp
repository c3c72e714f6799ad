#include "basics/closest_word.h"
#include "basics/console.h"
#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "basics/tool_error.h"
#include "commands/commands.h"
#include "commands/help.h"
#include "measuring/versions.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <new>
#include <unistd.h>

namespace {

using namespace tools;

// A file opened while a standard stream is closed would take its number and receive what is printed.
void OccupyStandardStreams() {
    for (int n = STDIN_FILENO; n <= STDERR_FILENO; ++n)
        if (fcntl(n, F_GETFD) == -1 && open("/dev/null", O_RDWR) == -1)
            return;
}

std::vector<std::string> Commands(const CLI::App& tApp) {
    std::vector<std::string> a;
    for (const CLI::App* const p : tApp.get_subcommands({}))
        if (!p->get_group().empty())
            a.push_back(p->get_name());
    return a;
}

// "; did you mean measure?"
std::string Suggestion(const CLI::App& tCommand, const std::string& strTyped) {
    std::vector<std::string> a = Commands(tCommand);
    for (const CLI::Option* const p : tCommand.get_options())
        if (!p->get_lnames().empty())
            a.push_back("--" + p->get_lnames().front());
    const std::optional<std::string> o = ClosestWord(strTyped, a);
    return o ? "; did you mean " + *o + "?" : "";
}

// What the parser could not place comes first: it is often the cause of what is then missing.
std::string Reason(const CLI::App& tCommand, const CLI::Error& tError) {
    const std::vector<std::string> aUnknown = tCommand.remaining();
    if (!aUnknown.empty())
        return "\"" + aUnknown.front() + "\" is not understood" + Suggestion(tCommand, aUnknown.front());
    return tCommand.get_parent() == nullptr ? "name a command: " + Listed(Commands(tCommand)) : tError.what();
}

// The name of a file that begins with a dash reads like an option.
bool IsLikeFile(const std::string& str) {
    const std::string strExtension = std::filesystem::path(str).extension();
    const bool bNamed =
        strExtension.size() > 1 && std::isalpha(static_cast<unsigned char>(strExtension[1])) != 0;
    std::error_code tIgnored; // a name that cannot be looked up is no file
    return str.starts_with('-') && (bNamed || std::filesystem::exists(str, tIgnored));
}

std::string Advice(const CLI::App& tCommand) {
    const std::vector<std::string> aUnknown = tCommand.remaining();
    if (aUnknown.empty() || !IsLikeFile(aUnknown.front()))
        return "";
    return "  If it is a file, write " + ShellWord("./" + aUnknown.front()) + ".\n";
}

std::string Sentence(const std::string& str) {
    return str.ends_with('?') ? str : str + ".";
}

std::string UsageMessage(const CLI::App* pApp, const CLI::Error& tError) {
    const std::vector<CLI::App*> aChosen = pApp->get_subcommands();
    const CLI::App& tCommand = aChosen.empty() ? *pApp : *aChosen.front();
    const std::string strCommand = aChosen.empty() ? "" : " " + tCommand.get_name();
    return pApp->get_name() + strCommand + ": " + Sentence(Harmless(Reason(tCommand, tError))) + "\n" +
           Advice(tCommand) + "  See " + CalledAs() + strCommand + " --help.\n";
}

ExitCode Fail(const std::string& strMessage) {
    Tell(strMessage);
    return ExitCode::kUnfitFile;
}

std::string Footer() {
    return ExamplesHelp({"render --out demo --rx 0.8", "measure demo/master.pgm demo/slave.pgm"}) +
           ExitCodesHelp(VerdictExits()) +
           "\nThese are measure's. Of the other commands 0 is done, or a record accepted, and 2 a record "
           "refused;\neach command has its own: " +
           CalledAs() + " help COMMAND.\n";
}

// As the parser takes them, the last one first. "help measure" is "measure --help"; of a mistyped command the
// parser tells.
std::vector<std::string> Arguments(const CLI::App& tApp, int nArguments, const char* const* aszArguments) {
    std::vector<std::string> a(aszArguments + std::min(1, nArguments), aszArguments + nArguments);
    if (!a.empty() && a.front() == "help") {
        a.erase(a.begin());
        const std::vector<std::string> aKnown = Commands(tApp);
        if (a.empty() || std::ranges::count(aKnown, a.front()) != 0)
            a.emplace_back("--help");
    }
    std::ranges::reverse(a);
    return a;
}

ExitCode Run(int nArguments, const char* const* aszArguments) {
    ExitCode tExit = ExitCode::kWrongUsage;
    CLI::App tApp("Measures pictures of the alignment chart.\n"
                  "The chart, a dark cross inside a dark frame, is photographed by the master and the slave "
                  "camera of a module. The commands measure such a pair or a list of them, read the record "
                  "that a measurement leaves, render pairs with known rotation, and write the chart to "
                  "print.",
                  "orvex-align");
    tApp.set_version_flag("--version", [] {
        return "orvex-align " + ToolVersion() + "\nlibOrvex_Alignment " + LibraryVersion();
    });
    tApp.formatter(std::make_shared<ManPage>());
    tApp.failure_message(UsageMessage);
    tApp.footer(Footer());
    tApp.require_subcommand(1);
    AddMeasureCommand(tApp, tExit);
    AddMeasureEachCommand(tApp, tExit);
    AddRecordCommand(tApp, tExit);
    AddBatchCommand(tApp, tExit);
    AddRenderCommand(tApp, tExit);
    AddParametersCommand(tApp, tExit);
    AddChartCommand(tApp, tExit);
    try {
        tApp.parse(Arguments(tApp, nArguments, aszArguments));
    } catch (const CLI::ParseError& t) {
        return tApp.exit(t) == 0 ? ExitCode::kDone : ExitCode::kWrongUsage;
    } catch (const ToolError& t) {
        return Fail(t.what());
    } catch (const std::bad_alloc&) {
        return Fail(
            "not enough memory for pictures of this size.\n  Close other programs or use smaller pictures.");
    } catch (const std::exception& t) { // a fault of ours: told, not aborted
        return Fail("ended by a fault of the program: " + Harmless(t.what()) +
                    ".\n  Keep the files of this command and report them with this line.");
    }
    return tExit;
}

} // namespace

int main(int nArguments, char** aszArguments) {
    OccupyStandardStreams();
    return static_cast<int>(Run(nArguments, aszArguments));
}

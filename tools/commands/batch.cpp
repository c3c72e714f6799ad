#include "commands/batch.h"

#include "basics/console.h"
#include "basics/files.h"
#include "basics/harmless_text.h"
#include "basics/tool_error.h"
#include "batch/measuring.h"
#include "commands/option_checks.h"

#include <algorithm>
#include <filesystem>
#include <thread>
#include <unistd.h>

namespace tools {
namespace {

constexpr std::size_t nResultsLimit = std::size_t{1} << 31;

// Seconds. The largest pictures take a few.
constexpr std::size_t nDefaultTimeout = 60;

struct Options {
    std::string strList, strRaw, strSlaveRaw, strOut, strFormat = "csv";
    std::size_t nJobs = std::max(1u, std::thread::hardware_concurrency());
    std::size_t nTimeout = nDefaultTimeout;
    bool bResume = false, bOverwrite = false, bRepeatability = false;

    RowFormat Format() const { return strFormat == "csv" ? RowFormat::kCsv : RowFormat::kJsonLines; }
    OpenMode Mode() const {
        return bResume ? OpenMode::kResume : bOverwrite ? OpenMode::kOverwrite : OpenMode::kNew;
    }
};

void CheckOptions(const Options& t) {
    if (t.bResume && t.strOut.empty())
        throw CLI::ValidationError("--resume", "needs --out, the file to go on with");
    if (!t.strRaw.empty())
        ParsedSize("--raw", t.strRaw);
    if (!t.strSlaveRaw.empty())
        ParsedSize("--raw-slave", t.strSlaveRaw);
}

// As this command and measure both have them.
std::vector<std::string> PictureOptions(const Options& t) {
    std::vector<std::string> a;
    if (!t.strRaw.empty())
        a.push_back("--raw=" + t.strRaw);
    if (!t.strSlaveRaw.empty())
        a.push_back("--raw-slave=" + t.strSlaveRaw);
    return a;
}

bool IsThere(const std::string& strFile) {
    std::error_code tIgnored; // what else is wrong with the name shows on opening
    return std::filesystem::exists(strFile, tIgnored);
}

void CheckList(const Options& t, const BatchList& tList) {
    std::error_code tIgnored; // a file that is not there is no list
    if (std::filesystem::equivalent(t.strOut, t.strList, tIgnored))
        throw ToolError(t.strOut, "is the list itself", "Name another file for the results");
    if (IsThere(t.strOut))
        for (const BatchItem& tItem : tList.aItems)
            for (const std::string& str : {tItem.strMaster, tItem.strSlave, tItem.strCalibration})
                if (!str.empty() && std::filesystem::equivalent(std::filesystem::path(tList.strFolder) / str,
                                                                t.strOut, tIgnored))
                    throw ToolError(t.strOut, "is an input that the list names",
                                    "Name another file for the results");
    if (t.bRepeatability && !tList.bHasIds)
        throw ToolError(t.strList, "has no column \"id\", by which --repeatability groups the rows",
                        "Add a column id, with the same id for pictures of the same module");
}

// The rows that an interrupted run left, each of them checked against the list.
StoredRows EarlierRows(const Options& t, const BatchList& tList) {
    if (!t.bResume)
        return {{}, 0};
    StoredRows tRows = ReadRows(t.Format(), t.strOut, ReadFile(t.strOut, nResultsLimit));
    for (std::size_t i = 0; i < tRows.aRows.size(); ++i)
        if (i >= tList.aItems.size() || !IsRowOf(tRows.aRows[i], tList.aItems[i]))
            throw ToolError(
                t.strOut,
                "belongs to another list: its row " + std::to_string(i + 1) + " is not that of " + t.strList,
                "Name the list and the results that belong together, or a new file; nothing was changed");
    return tRows;
}

std::string ResumeCommand(const Options& t) {
    std::string strPictures;
    for (const std::string& str : PictureOptions(t))
        strPictures += " " + str;
    return "orvex-align batch " + ShellWord(t.strList) + strPictures + " --out " + ShellWord(t.strOut) +
           " --format " + t.strFormat + " --jobs " + std::to_string(t.nJobs) +
           (t.nTimeout == nDefaultTimeout ? "" : " --timeout " + std::to_string(t.nTimeout)) +
           (t.bRepeatability ? " --repeatability" : "") + " --resume";
}

void TellNothingToResume(const Options& t) {
    std::fputs(
        ("orvex-align: " + Harmless(t.strOut) + ": no such file yet; starting with the first row.\n").c_str(),
        stderr);
}

std::string WordsOfDropped(std::size_t n) {
    return n == 0
               ? ""
               : "  " + std::to_string(n) +
                     (n == 1
                          ? " finished row behind a slower pair is dropped; the next run measures it"
                          : " finished rows behind a slower pair are dropped; the next run measures them") +
                     " again.\n";
}

void TellStop(const Options& t, const MeasuredRows& tMeasured, std::size_t nTotal) {
    const std::string strRows =
        std::to_string(tMeasured.nWritten) + " of " + std::to_string(nTotal) + " rows";
    const std::string strHeld = t.strOut.empty() ? "" : ", which " + Harmless(t.strOut) + " holds";
    const std::string strRest = t.strOut.empty()
                                    ? "A run that can go on later writes to a file: see --out and --resume"
                                    : "Go on with\n  " + ResumeCommand(t);
    std::fputs(("orvex-align: stopped after " + strRows + strHeld + ".\n" +
                WordsOfDropped(tMeasured.nDropped) + "  " + strRest + "\n")
                   .c_str(),
               stderr);
}

void TellSummary(const Options& t, const BatchSummary& tSummary) {
    const std::string str = tSummary.Text() + (t.bRepeatability ? tSummary.RepeatabilityText() : "");
    if (t.strOut.empty())
        std::fputs(str.c_str(), stderr);
    else
        Print(str);
}

ExitCode Run(const Options& t) {
    CheckOptions(t);
    const BatchList tList = ReadBatchList(t.strList);
    CheckList(t, tList);
    const bool bNothingToResume = t.bResume && !IsThere(t.strOut);
    ResultSink tSink(t.strOut, t.Mode());
    if (bNothingToResume)
        TellNothingToResume(t);
    const StoredRows tEarlier = EarlierRows(t, tList);
    const std::size_t nFirst = tEarlier.aRows.size(), nTotal = tList.aItems.size();
    BatchSummary tSummary;
    for (std::size_t i = 0; i < nFirst; ++i)
        tSummary.Add(tList.aItems[i], tEarlier.aRows[i]);
    tSink.KeepOnly(tEarlier.nBytes);
    if (tEarlier.nBytes == 0)
        tSink.Write(HeadOf(t.Format()));
    const bool bProgress = !t.strOut.empty() || isatty(STDOUT_FILENO) == 0;
    const MeasuredRows tMeasured = MeasureRows(
        {tList, nFirst, PictureOptions(t), t.Format(), t.nJobs, std::chrono::seconds(t.nTimeout), bProgress},
        tSink, tSummary);
    if (tMeasured.nSignal != 0) {
        TellStop(t, tMeasured, nTotal);
        return static_cast<ExitCode>(kSignal + tMeasured.nSignal);
    }
    TellSummary(t, tSummary);
    return tSummary.Exit();
}

constexpr char szDescription[] =
    "measures all pairs of a list, several at once, and writes a row for each\n"
    "LIST.csv is a table whose first line names the columns, apart by commas and in any order: master, slave "
    "and calibration are the files of a pair, relative to the list's folder; id names the module (the row's "
    "number where there is no such column); true_rx_deg, true_ry_deg and true_rz_deg are the known rotation "
    "of rendered pairs, against which the summary then compares. Other columns are ignored.\n"
    "Every pair is measured in a process of its own. A pair that cannot be read or measured, whose line in "
    "the list is incomplete, or whose process crashes or takes longer than --timeout, is a row that says so, "
    "and the batch goes on. Rows come in the list's order and as soon as all before them are there, so that "
    "an interrupted run keeps what it has and --resume goes on behind it. A summary follows: counts, "
    "failures by status or reason, warnings by kind and the spread of the raw angles. It goes to standard "
    "output with "
    "--out, to standard error without. A progress bar shows on a terminal.\n"
    "The columns: id, master, slave, calibration; exit_code, status, verdict, camera, stage and words as "
    "measure tells them (verdict also unfit_input, and no_answer for a process that crashed or took too "
    "long); warnings, which measure gives where an angle may be wrong although it is within range, apart by "
    "\" | \"; "
    "then every measurement and trust number, with its unit (deg, px, percent, grey) at the end of its name.";

constexpr char szExamples[] =
    "EXAMPLES\n"
    "    orvex-align batch LIST.csv --out results.csv\n"
    "    orvex-align batch LIST.csv --out results.csv --resume\n"
    "    orvex-align batch gauge.csv --out gauge.jsonl --format jsonl --repeatability\n"
    "    orvex-align batch frames.csv --raw 1728x972 --out results.csv\n"
    "    orvex-align batch LIST.csv --jobs 1 > results.csv\n\n";

constexpr std::array<ExitMeaning, 8> aExits = {{
    {kWithinRange, "every row measured and within range"},
    {kOutOfRange, "a row measured out of range"},
    {kNotMeasured, "a row could not be measured"},
    {kUnfitFile, "list or results unusable, or files of a row unreadable; the highest of 0 to 3 wins"},
    {kWrongUsage, "wrong usage"},
    {kSignal + 1, "stopped by the terminal's end (SIGHUP); --resume goes on"},
    {kSignal + 2, "stopped by Ctrl-C (SIGINT); --resume goes on"},
    {kSignal + 15, "stopped by SIGTERM; --resume goes on"},
}};

} // namespace

void AddBatchCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("batch", szDescription);
    tCommand.add_option("LIST.csv", pOptions->strList, "The list of pairs")
        ->required()
        ->check(FileName())
        ->type_name("");
    tCommand.add_option("--jobs", pOptions->nJobs, "Measurements at once, 1 to 1024")
        ->check(Within(1, 1024))
        ->check(WholeNumber())
        ->type_name("N")
        ->default_str("one per core, here " + std::to_string(pOptions->nJobs));
    auto* const pRaw =
        tCommand
            .add_option(
                "--raw", pOptions->strRaw,
                "All pictures are raw, as for measure: the first width x height bytes of each are the "
                "plane; size in px, such as 1728x972")
            ->type_name("WxH");
    tCommand
        .add_option("--raw-slave", pOptions->strSlaveRaw,
                    "With --raw: size of the slaves' planes in px, if it differs")
        ->needs(pRaw)
        ->type_name("WxH");
    tCommand
        .add_option("--timeout", pOptions->nTimeout,
                    "Longest time for one pair, 1 to 86400 s; a process that takes longer is ended, and its "
                    "row says so")
        ->check(Within(1, 86400))
        ->check(WholeNumber())
        ->type_name("SECONDS")
        ->capture_default_str();
    tCommand
        .add_option("--out", pOptions->strOut,
                    "File for the rows; without it they go to standard output. A file that exists is refused "
                    "unless one of the next two is given")
        ->check(FileName())
        ->type_name("FILE");
    auto* const pResume = tCommand.add_flag("--resume", pOptions->bResume,
                                            "Go on behind the last whole row of --out; a torn one is cut "
                                            "off. Results of another list are refused");
    tCommand.add_flag("--overwrite", pOptions->bOverwrite, "Replace --out")->excludes(pResume);
    tCommand
        .add_option("--format", pOptions->strFormat,
                    "Form of the rows: csv, or jsonl for one JSON object a line")
        ->check(OneOf({"csv", "jsonl"}))
        ->type_name("FORM")
        ->capture_default_str();
    tCommand.add_flag(
        "--repeatability", pOptions->bRepeatability,
        "Also a gauge study: the spread of the raw angles within the rows of one id and between ids");
    tCommand.footer(std::string("REPEATABILITY\n") + szGaugeFormulae + "\n" + szExamples +
                    ExitCodesHelp(aExits));
    tCommand.callback([pOptions, &tExit] { tExit = Run(*pOptions); });
}

} // namespace tools

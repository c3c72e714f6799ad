#include "commands/commands.h"

#include "basics/console.h"
#include "basics/files.h"
#include "basics/harmless_text.h"
#include "basics/tool_error.h"
#include "batch/measuring.h"
#include "batch/patterns.h"
#include "batch/summary.h"
#include "batch_report/shown_pairs.h"
#include "commands/help.h"
#include "commands/options.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <unistd.h>

namespace tools {
namespace {

constexpr std::size_t kResultsLimit = std::size_t{1} << 31;

// Seconds. The largest pictures take a few.
constexpr std::size_t kDefaultTimeout = 60;

struct Options {
    std::string strList, strOut, strSummary, strReport, strReports, strBy, strFormat = "csv";
    std::vector<std::string> aPatterns; // of the masters and of the slaves; empty: the list has the pairs
    RawOptions tRaw;
    DoubtOptions tDoubt;
    ProductOption tProduct;
    std::size_t nJobs = 0, nTimeout = kDefaultTimeout;
    bool bResume = false, bOverwrite = false, bRepeatability = false;

    BatchList List() const {
        return aPatterns.empty() ? ReadBatchList(strList) : ListOfPatterns(aPatterns[0], aPatterns[1]);
    }
    RowFormat Format() const { return strFormat == "csv" ? RowFormat::kCsv : RowFormat::kJsonLines; }
    OpenMode Mode() const {
        return bResume ? OpenMode::kResume : bOverwrite ? OpenMode::kOverwrite : OpenMode::kNew;
    }
};

// The sizes of raw planes are checked before the first pair.
void CheckOptions(const Options& tOptions) {
    if (tOptions.strList.empty() && tOptions.aPatterns.empty())
        throw CLI::ValidationError("LIST.csv", "is required, or --pairs in its place");
    if (tOptions.bResume && tOptions.strOut.empty())
        throw CLI::ValidationError("--resume", "needs --out, the file to go on with");
    tOptions.tRaw.MasterSize();
    tOptions.tRaw.SlaveSize();
}

bool IsThere(const std::string& strFile) {
    std::error_code tIgnored; // what else is wrong with the name shows on opening
    return std::filesystem::exists(strFile, tIgnored);
}

void RefuseToReplaceInput(const std::string& strOut, const Options& tOptions, const BatchList& tList) {
    if (IsSameFile(strOut, tList.strFile))
        throw ToolError(strOut, "is the list itself", "Name another file for the results");
    if (IsSameFile(strOut, tOptions.tProduct.File()))
        throw ToolError(strOut, "is the product's file", "Name another file for the results");
    for (const BatchItem& tItem : tList.aItems)
        for (const std::string& str : {tItem.strMaster, tItem.strSlave, tItem.strCalibration})
            if (!str.empty() && IsSameFile(std::filesystem::path(tList.strFolder) / str, strOut))
                throw ToolError(strOut, "is an input that the list names",
                                "Name another file for the results");
}

void CheckList(const Options& tOptions, const BatchList& tList) {
    const std::array<std::pair<std::string, const char*>, 3> aOutputs = {
        {{tOptions.strOut, "rows"}, {tOptions.strSummary, "summary"}, {tOptions.strReport, "report"}}};
    for (const auto& [strFile, szWhat] : aOutputs) {
        if (IsThere(strFile)) // nothing can be lost otherwise
            RefuseToReplaceInput(strFile, tOptions, tList);
        for (const auto& [strOther, szOther] : aOutputs)
            if (szOther != szWhat && IsSameFile(strFile, strOther))
                throw ToolError(strFile, fmt::format("is named for the {} and for the {}", szWhat, szOther),
                                "Name two files");
    }
    if (tOptions.bRepeatability && !tList.bHasIds)
        throw ToolError(tOptions.strList, "has no column \"id\", by which --repeatability groups the rows",
                        "Add a column id, with the same id for pictures of the same module");
}

// The rows that an interrupted run left, each of them checked against the list.
StoredRows EarlierRows(const Options& tOptions, const RowForm& tForm, const BatchList& tList) {
    if (!tOptions.bResume)
        return {{}, 0};
    StoredRows tRows = ReadRows(tForm, tOptions.strOut, ReadFile(tOptions.strOut, kResultsLimit));
    for (std::size_t i = 0; i < tRows.aRows.size(); ++i)
        if (i >= tList.aItems.size() || !IsRowOf(tRows.aRows[i], tList.aItems[i]))
            throw ToolError(
                tOptions.strOut,
                fmt::format("belongs to another list: its row {} is not that of {}", i + 1, tList.strFile),
                "Name the list and the results that belong together, or a new file; nothing was changed");
    for (std::size_t i = 0; i < tRows.aRows.size(); ++i)
        if (const BatchRow& t = tRows.aRows[i];
            t.pVerdict->tKind < VerdictKind::kNoAnswer && t.strProduct != tOptions.tProduct.Everywhere())
            throw ToolError(
                tOptions.strOut,
                fmt::format("its row {} was measured {}", i + 1,
                            t.strProduct.empty() ? "without --product" : "with --product " + t.strProduct),
                "Go on with the same --product, or name a new file; nothing was changed");
    return tRows;
}

void TellStop(const Options& tOptions, std::size_t nWritten, std::size_t nTotal) {
    const bool bKept = !tOptions.strOut.empty();
    Tell(fmt::format("stopped after {} of {} rows{}.\n  {}", nWritten, nTotal,
                     bKept ? ", which " + Harmless(tOptions.strOut) + " holds" : "",
                     !bKept ? "A run that can go on later writes to a file: see --out and --resume."
                     : tOptions.bOverwrite
                         ? "Go on with the same command, with --resume in place of --overwrite."
                         : "Go on with the same command and --resume."));
}

void TellSummary(const Options& tOptions, const BatchSummary& tSummary) {
    const std::string str = tSummary.Text() + (tOptions.bRepeatability ? tSummary.RepeatabilityText() : "");
    if (tOptions.strOut.empty())
        PrintAside(str);
    else
        Print(str);
}

// The signal that stopped it, or 0.
int WriteReport(const Options& tOptions, Limits limits, const BatchWork& tWork, const ReportRows& tRows,
                Grouping tGroups) {
    tOptions.tDoubt.ApplyTo(limits);
    BatchReport report = {tRows,
                          std::move(tGroups),
                          CourseOf(tWork.tList),
                          std::move(limits),
                          {},
                          LinkTo(tOptions.strReports, tOptions.strReport)};
    const int nSignal = ShowPairs(tWork, tRows, tOptions.strReports, report.tShown);
    if (nSignal == 0)
        WriteFiles({{tOptions.strReport, HtmlOf(report)}});
    return nSignal;
}

ExitCode Run(const Options& tOptions) {
    CheckOptions(tOptions);
    const Limits limits = tOptions.tProduct.Read().tSetup.tLimits;
    const BatchList tList = tOptions.List();
    const RowForm tForm = FormOf(tOptions.Format(), tList);
    CheckList(tOptions, tList);
    const Grouping tGroups = GroupingBy(tOptions.strBy, tList);
    const bool bNothingToResume = tOptions.bResume && !IsThere(tOptions.strOut);
    ResultSink tSink(tOptions.strOut, tOptions.Mode());
    if (bNothingToResume)
        Tell(Harmless(tOptions.strOut) + ": no such file yet; starting with the first row.");
    const StoredRows tEarlier = EarlierRows(tOptions, tForm, tList);
    const std::size_t nFirst = tEarlier.aRows.size(), nTotal = tList.aItems.size();
    BatchSummary tSummary(limits);
    std::optional<ReportRows> oReportRows;
    if (!tOptions.strReport.empty())
        oReportRows.emplace(tList);
    const auto Take = [&](std::size_t nRow, const BatchRow& tRow) {
        tSummary.Add(tList.aItems[nRow], tRow);
        if (oReportRows)
            oReportRows->Add(nRow, tRow);
    };
    for (std::size_t i = 0; i < nFirst; ++i)
        Take(i, tEarlier.aRows[i]);
    tSink.KeepOnly(tEarlier.nBytes);
    if (tEarlier.nBytes == 0)
        tSink.Write(HeadOf(tForm));
    std::vector<std::string> aPassedOn = tOptions.tRaw.Arguments();
    std::ranges::move(tOptions.tDoubt.Arguments(), std::back_inserter(aPassedOn));
    std::ranges::move(tOptions.tProduct.Arguments(), std::back_inserter(aPassedOn));
    const bool bProgress = !tOptions.strOut.empty() || isatty(STDOUT_FILENO) == 0;
    const BatchWork tWork = {
        tList,     nFirst, aPassedOn, tForm, tOptions.nJobs, std::chrono::seconds(tOptions.nTimeout),
        bProgress, Take};
    const MeasuredRows tMeasured = MeasureRows(tWork, tSink);
    if (tMeasured.nSignal != 0) {
        TellStop(tOptions, tMeasured.nWritten, nTotal);
        return StoppedBy(tMeasured.nSignal);
    }
    if (!tOptions.strSummary.empty())
        WriteFiles({{tOptions.strSummary, TextOf(tSummary.AsJson(tOptions.bRepeatability))}});
    TellSummary(tOptions, tSummary);
    if (oReportRows)
        if (const int nSignal = WriteReport(tOptions, limits, tWork, *oReportRows, tGroups); nSignal != 0)
            return StoppedBy(nSignal);
    return tOptions.tDoubt.Answer(tSummary.Exit());
}

constexpr char kDescription[] =
    "measures all pairs of a list, several at once, and writes a row for each\n"
    "LIST.csv is a table whose first line names the columns, apart by commas, semicolons or tabs and in any "
    "order: master and slave are the files of a pair, relative to the list's folder, calibration is its "
    "calibration memory, which is only told in the rows; id names the module (the row's number where there "
    "is no such column); true_rx_deg, true_ry_deg and true_rz_deg are the known rotation of rendered pairs, "
    "against which the summary then compares. Case, blanks, _ and - tell no names apart. Other columns stand "
    "behind the rows' own, with list_ before a name that those have too.\n"
    "Pairs are measured by processes apart, as many as --jobs, each of which takes many. A pair that cannot "
    "be read or measured, whose line in "
    "the list is incomplete, or whose process crashes or takes longer than --timeout, is a row that says so, "
    "and the batch goes on. Rows come in the list's order and as soon as all before them are there, so that "
    "an interrupted run keeps what it has and --resume goes on behind it, also where lines were added to the "
    "list since. A summary follows: counts, the ids of all that is not within range, failures by status or "
    "reason, warnings by kind and the spread of the raw angles. It goes to standard "
    "output with --out, to standard error without. A progress bar shows on a terminal.\n"
    "The columns: id, master, slave, calibration; exit_code, status, verdict, camera, stage and words as "
    "measure tells them (verdict also unfit_input, and no_answer for a process that crashed or took too "
    "long); warnings, what speaks against the angles or may be the cause of a failure, apart by \" | \", and "
    "warning_kinds, the camera and kind of each; then every measurement and trust number, with its unit "
    "(deg, px, percent, grey) at the end of its name.";

CLI::Validator OneStar() {
    const auto Check = [](const std::string& str) {
        return std::ranges::count(str, '*') == 1
                   ? std::string()
                   : "\"" + str + "\" does not have one *; quotes keep it from the shell";
    };
    return {Check, "", ""};
}

// A pair's verdicts are a list's, the gravest of them; some only a list has.
std::string Exits() {
    std::vector<ExitMeaning> aAnswers = VerdictExits();
    for (ExitMeaning& tAnswer : aAnswers) {
        tAnswer.strMeaning =
            (tAnswer.tExit == ExitCode::kDone ? "every row: " : "a row: ") + tAnswer.strMeaning;
        for (const VerdictWords& tVerdict : kVerdicts)
            if (tVerdict.szLabel == nullptr && tVerdict.tExit == tAnswer.tExit)
                tAnswer.strMeaning += fmt::format(", or {}", tVerdict.szMeaning);
        if (tAnswer.tExit == ExitCode::kUnfitFile)
            tAnswer.strMeaning += "; or list or results are unusable";
    }
    return ExitCodesHelp(aAnswers, "--resume goes on") + "The gravest of the rows' answers wins.\n";
}

} // namespace

void AddBatchCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("batch", kDescription);
    CLI::Option& tList = AddFile(tCommand, "LIST.csv", pOptions->strList, "The list of pairs", "");
    tCommand
        .add_option(
            "--pairs", pOptions->aPatterns,
            "In place of a list: patterns of the masters' and of the slaves' names, in quotes. In each "
            "one * stands for the id by which two files are a pair; nothing else is special")
        ->expected(2)
        ->check(OneStar())
        ->type_name("MASTERS SLAVES")
        ->excludes(&tList);
    AddJobs(tCommand, pOptions->nJobs, "Measurements at once, 1 to 1024");
    pOptions->tRaw.AddTo(tCommand);
    pOptions->tDoubt.AddTo(tCommand);
    pOptions->tProduct.AddTo(tCommand, "all pairs are measured with its parameters and judged by its limits");
    AddCount(
        tCommand, "--timeout", pOptions->nTimeout,
        "Longest time for one pair, 1 to 86400 s; a process that takes longer is ended, and its row says so",
        1, 86400, "SECONDS")
        .capture_default_str();
    AddFile(tCommand, "--out", pOptions->strOut,
            "File for the rows; without it they go to standard output. A file that exists is refused unless "
            "one of the next two is given");
    auto* const pResume =
        tCommand.add_flag("--resume", pOptions->bResume,
                          "Go on behind the last whole row of --out; a torn one is cut off. Results of "
                          "another list are refused; give the same --max-difference");
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
    AddFile(tCommand, "--summary", pOptions->strSummary, "Also write the summary as one JSON object");
    auto* const pReport =
        &AddFile(tCommand, "--report", pOptions->strReport,
                 "Also write one HTML page: counts, the angles along the list or its column "
                 "time, their distribution, and all rows in a table that sorts and filters");
    tCommand
        .add_option("--by", pOptions->strBy,
                    "Column of the list by which the page colours and counts the rows")
        ->type_name("COLUMN")
        ->needs(pReport);
    AddFile(
        tCommand, "--reports", pOptions->strReports,
        "Folder for a page of each failing or doubtful pair, as measure --report writes it, for the page to "
        "link to; about 3 MB each",
        "DIR")
        .needs(pReport);
    tCommand.footer(std::string("REPEATABILITY\n") + kGaugeFormulae + "\n" +
                    ExamplesHelp({"batch LIST.csv --out results.csv",
                                  "batch --pairs 'week/*_m.png' 'week/*_s.png' --out results.csv",
                                  "batch LIST.csv --out results.csv --resume",
                                  "batch LIST.csv --out results.csv --report week.html --by station",
                                  "batch gauge.csv --out gauge.jsonl --format jsonl --repeatability",
                                  "batch frames.csv --raw 1728x972 --out results.csv",
                                  "batch LIST.csv --jobs 1 > results.csv"}) +
                    Exits());
    tCommand.callback([pOptions, &tExit] { tExit = Run(*pOptions); });
}

} // namespace tools

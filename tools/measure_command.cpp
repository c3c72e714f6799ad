#include "measure_command.h"

#include "calibration.h"
#include "console.h"
#include "files.h"
#include "report_html.h"
#include "tool_error.h"

#include <filesystem>
#include <memory>

namespace tools {
namespace {

struct Options {
    std::string strMaster, strSlave, strCalibration, strTruth, strReport;
    bool bJson = false;
};

PictureNote NoteOf(const Picture& t) {
    return {t.strFile, t.nColumns, t.nRows};
}

// A report in the place of one of its own sources would destroy it.
void RefuseToReplaceSource(const Options& t) {
    std::error_code tIgnored; // a file that is missing is not the same one
    for (const std::string& str : {t.strMaster, t.strSlave, t.strCalibration, t.strTruth})
        if (std::filesystem::equivalent(str, t.strReport, tIgnored))
            throw ToolError(t.strReport, "is an input of this measurement and is not replaced by the report",
                            "Name another file for the report, such as report.html");
}

Report Run(const Options& t) {
    if (!t.strReport.empty())
        RefuseToReplaceSource(t);
    const Picture tMaster = ReadPicture(t.strMaster), tSlave = ReadPicture(t.strSlave);
    const std::string strCalibration = ReadCalibration(t.strCalibration);
    std::optional<Truth> oTruth;
    if (!t.strTruth.empty())
        oTruth = ReadTruth(t.strTruth);
    const Measurement m = Measure(tMaster, tSlave, strCalibration);
    const Report tReport = {
        NoteOf(tMaster),
        NoteOf(tSlave),
        t.strCalibration,
        m,
        VerdictOf(m),
        oTruth,
        TrustOf(tMaster, m.tMaster),
        TrustOf(tSlave, m.tSlave),
    };
    if (!t.strReport.empty())
        WriteFiles({{t.strReport, HtmlOf(tReport, tMaster, tSlave)}});
    return tReport;
}

ExitCode Show(const Options& t) {
    const Report tReport = Run(t);
    Print(t.bJson ? JsonTextOf(tReport) : TextOf(tReport));
    return tReport.tVerdict.tExit;
}

constexpr char szNotes[] =
    "Trust numbers: on lines across every side of the frame, 4 px apart, the tool itself reads the dark "
    "line's\n"
    "centre, dark and bright level from the picture. The residual is the centres' RMS distance in px from "
    "the\n"
    "straight line between the two measured corners. Warnings tell value and limit.\n\n"
    "Example:\n"
    "  orvex-align measure master.pgm slave.pgm --calibration calibration.bin --report report.html\n\n";

} // namespace

void AddMeasureCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand(
        "measure", "Measures a pair and shows the slave camera's rotation against the master's.");
    tCommand.add_option("MASTER", pOptions->strMaster, "The master camera's picture: 8-bit binary PGM")
        ->required()
        ->type_name("");
    tCommand.add_option("SLAVE", pOptions->strSlave, "The slave camera's picture: 8-bit binary PGM")
        ->required()
        ->type_name("");
    tCommand
        .add_option("--calibration", pOptions->strCalibration,
                    "The module's calibration memory, at least 2915 bytes")
        ->required()
        ->type_name("FILE");
    tCommand.add_flag("--json", pOptions->bJson, "Print one JSON object instead of text");
    tCommand
        .add_option("--report", pOptions->strReport,
                    "Also write one HTML page with both pictures, what was found in them, and every number")
        ->type_name("FILE");
    tCommand
        .add_option("--truth", pOptions->strTruth,
                    "Also compare with the truth.json of a rendered pair (differences in degrees and px)")
        ->type_name("FILE");
    tCommand.footer(szNotes + ExitCodesHelp(kMeasureExits));
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

} // namespace tools

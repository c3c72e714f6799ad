#include "measure_command.h"

#include "calibration.h"
#include "console.h"
#include "report.h"

#include <memory>

namespace tools {
namespace {

struct Options {
    std::string strMaster, strSlave, strCalibration, strTruth;
    bool bJson = false;
};

PictureNote NoteOf(const Picture& t) {
    return {t.strFile, t.nColumns, t.nRows};
}

Report Run(const Options& t) {
    const Picture tMaster = ReadPicture(t.strMaster), tSlave = ReadPicture(t.strSlave);
    const std::string strCalibration = ReadCalibration(t.strCalibration);
    std::optional<Truth> oTruth;
    if (!t.strTruth.empty())
        oTruth = ReadTruth(t.strTruth);
    const Measurement tMeasurement = Measure(tMaster, tSlave, strCalibration);
    return {NoteOf(tMaster), NoteOf(tSlave), t.strCalibration, tMeasurement, VerdictOf(tMeasurement), oTruth};
}

ExitCode Show(const Options& t) {
    const Report tReport = Run(t);
    Print(t.bJson ? JsonTextOf(tReport) : TextOf(tReport));
    return tReport.tVerdict.tExit;
}

constexpr char szExample[] = "EXAMPLES\n"
                             "    orvex-align measure master.pgm slave.pgm --calibration calibration.bin\n\n";

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
        .add_option("--truth", pOptions->strTruth,
                    "Also compare with the truth.json of a rendered pair (differences in degrees and px)")
        ->type_name("FILE");
    tCommand.footer(szExample + ExitCodesHelp(kMeasureExits));
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

} // namespace tools

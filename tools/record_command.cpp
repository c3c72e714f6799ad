#include "record_command.h"

#include "calibration.h"
#include "console.h"
#include "record_output.h"

#include <memory>

namespace tools {
namespace {

struct Options {
    std::string strFile, strCalibration;
    bool bJson = false;
};

ExitCode Show(const Options& t) {
    const RecordReading tReading = ReadRecord(t.strFile, ReadCalibration(t.strCalibration));
    const RecordReport tReport = {tReading, JudgementOf(tReading), t.strCalibration};
    Print(t.bJson ? JsonTextOf(tReport) : TextOf(tReport));
    return tReport.tJudgement.tExit;
}

constexpr char szExample[] = "Example:\n"
                             "  orvex-align record AFProtect.txt --calibration calibration.bin\n\n";

} // namespace

void AddRecordCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand(
        "record", "Decrypts an autofocus record file and shows its fields, or tells which check refused it.");
    tCommand
        .add_option("FILE", pOptions->strFile,
                    "The record file: AFProtect.txt of a phone, or measure --record's")
        ->required()
        ->type_name("");
    tCommand
        .add_option("--calibration", pOptions->strCalibration,
                    "The module's calibration memory, at least 2915 bytes; the key is made from it")
        ->required()
        ->type_name("FILE");
    tCommand.add_flag("--json", pOptions->bJson, "Print one JSON object instead of text");
    tCommand.footer(szExample + ExitCodesHelp(kRecordExits));
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

} // namespace tools

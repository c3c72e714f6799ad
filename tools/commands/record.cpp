#include "commands/record.h"

#include "basics/console.h"
#include "commands/man_page.h"
#include "commands/option_checks.h"
#include "measuring/calibration.h"
#include "record/output.h"

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

constexpr char szDescription[] =
    "Decrypts an autofocus record file and shows its fields.\n"
    "A measurement leaves the record, encrypted for its module. The library's reader decrypts it with a key "
    "that it makes from the module's calibration memory, checks its checksum, and compares its focus lines "
    "with the calibration's, as whole numbers. If it refuses the record, the answer tells which check did "
    "and what to try. No check covers version, container header, reserved bytes and what follows them: "
    "warnings tell what of these is not as a measurement writes it.";

std::string Footer() {
    return ExamplesHelp({"orvex-align record AFProtect.txt --calibration calibration.bin",
                         "orvex-align record AFProtect.txt --calibration calibration.bin --json"}) +
           ExitCodesHelp(kRecordExits);
}

} // namespace

void AddRecordCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("record", szDescription);
    tCommand
        .add_option("FILE", pOptions->strFile,
                    "The record file: AFProtect.txt of a phone, or measure --record's")
        ->required()
        ->check(FileName())
        ->type_name("");
    tCommand
        .add_option("--calibration", pOptions->strCalibration,
                    CalibrationHelp() + "; the key is made from it")
        ->required()
        ->check(FileName())
        ->type_name("FILE");
    tCommand.add_flag("--json", pOptions->bJson, "Print one JSON object instead of text");
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

} // namespace tools

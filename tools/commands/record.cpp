#include "commands/commands.h"

#include "basics/console.h"
#include "commands/help.h"
#include "commands/options.h"
#include "measuring/calibration.h"
#include "record/output.h"

#include <memory>

namespace tools {
namespace {

struct Options {
    std::string strFile, strCalibration;
    bool bJson = false;
};

ExitCode Show(const Options& tOptions) {
    const RecordReading tReading = ReadRecord(tOptions.strFile, ReadCalibration(tOptions.strCalibration));
    const RecordReport report = {tReading, JudgementOf(tReading), tOptions.strCalibration};
    Print(tOptions.bJson ? JsonTextOf(report) : TextOf(report));
    return report.Exit();
}

constexpr char kDescription[] =
    "Decrypts an autofocus record file and shows its fields.\n"
    "A measurement leaves the record, encrypted for its module. The library's reader decrypts it with a key "
    "that it makes from the module's calibration memory, checks its checksum, and compares its focus lines "
    "with the calibration's, as whole numbers. If it refuses the record, the answer tells which check did "
    "and what to try. No check covers version, container header, reserved bytes and what follows them: "
    "warnings tell what of these is not as a measurement writes it.";

std::string Footer() {
    return ExamplesHelp({"record AFProtect.txt --calibration calibration.bin",
                         "record AFProtect.txt --calibration calibration.bin --json"}) +
           ExitCodesHelp({{ExitCode::kDone, "accepted"},
                          {ExitCode::kNotMeasured, "refused"},
                          {ExitCode::kUnfitFile, "a file could not be read, or does not fit"}});
}

} // namespace

void AddRecordCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("record", kDescription);
    AddFile(tCommand, "FILE", pOptions->strFile,
            "The record file: /sdcard/AFProtect.txt of a phone, or measure --record's", "")
        .required();
    AddCalibration(tCommand, pOptions->strCalibration, "the record's key is made from it").required();
    AddJson(tCommand, pOptions->bJson);
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

} // namespace tools

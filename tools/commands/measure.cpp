#include "commands/measure.h"

#include "basics/console.h"
#include "basics/files.h"
#include "basics/text_table.h"
#include "basics/tool_error.h"
#include "commands/man_page.h"
#include "commands/option_checks.h"
#include "measuring/calibration.h"
#include "measuring/frame_search.h"
#include "report/page.h"
#include "trust/limits.h"

#include <memory>

namespace tools {
namespace {

struct Options {
    std::string strMaster, strSlave, strCalibration, strTruth, strRaw, strSlaveRaw, strRecord, strReport;
    bool bJson = false;
};

PictureNote NoteOf(const Picture& t) {
    return {t.strFile, t.nColumns, t.nRows};
}

std::optional<PictureSize> SizeGiven(const char* szOption, const std::string& str) {
    return str.empty() ? std::nullopt : std::optional(ParsedSize(szOption, str));
}

NewFile RecordFile(const std::string& strFile, const std::string& strRecord) {
    if (strRecord.empty())
        throw ToolError(strFile, "is not written, because the record could not be encrypted",
                        "Measure again, and tell the maker if it stays so");
    return {strFile, strRecord};
}

void RefuseTooSmall(Camera tCamera, const Picture& t) {
    const PictureSize tLeast = LeastSizeOf(tCamera);
    if (t.nColumns < tLeast.nColumns || t.nRows < tLeast.nRows)
        throw ToolError(t.strFile,
                        "is " + SizeText({t.nColumns, t.nRows}) + ", but the " + NameOf(tCamera) +
                            " must be at least " + SizeText(tLeast) +
                            " to show the whole frame around the cross",
                        "Name the picture as the camera took it, not a reduced copy or a part of it");
}

// An output in the place of one of the sources would destroy it, and one of two outputs in one place the
// other.
void RefuseToReplaceSource(const Options& t) {
    for (const std::string& strOutput : {t.strRecord, t.strReport})
        for (const std::string& str : {t.strMaster, t.strSlave, t.strCalibration, t.strTruth})
            if (IsSameFile(str, strOutput))
                throw ToolError(strOutput, "is an input of this measurement and is not replaced",
                                "Name another file for the output");
    if (IsSameFile(t.strRecord, t.strReport))
        throw ToolError(t.strReport, "is named for the record and for the report", "Name two files");
}

Report Run(const Options& t) {
    RefuseToReplaceSource(t);
    const std::optional<PictureSize> oRaw = SizeGiven("--raw", t.strRaw),
                                     oSlaveRaw = SizeGiven("--raw-slave", t.strSlaveRaw);
    const Picture tMaster = ReadPicture(t.strMaster, oRaw),
                  tSlave = ReadPicture(t.strSlave, oSlaveRaw ? oSlaveRaw : oRaw);
    RefuseTooSmall(Camera::kMaster, tMaster);
    RefuseTooSmall(Camera::kSlave, tSlave);
    const std::string strCalibration = ReadCalibration(t.strCalibration);
    std::optional<Truth> oTruth;
    if (!t.strTruth.empty())
        oTruth = ReadTruth(t.strTruth);
    const Measurement m = Measure(tMaster, tSlave, strCalibration);
    const StageViews tViews = ViewsOf(tMaster, tSlave, m);
    Report tReport = {
        NoteOf(tMaster),
        NoteOf(tSlave),
        t.strCalibration,
        t.strRecord,
        m,
        VerdictOf(m),
        oTruth,
        tViews,
        TrustOf(tMaster, m.tMaster, tViews.tMaster),
        TrustOf(tSlave, m.tSlave, tViews.tSlave),
    };
    std::vector<NewFile> aOutputs;
    if (!t.strRecord.empty())
        aOutputs.push_back(RecordFile(t.strRecord, m.strRecord));
    if (!t.strReport.empty())
        aOutputs.push_back({t.strReport, HtmlOf(tReport, tMaster, tSlave)});
    WriteFiles(aOutputs);
    return tReport;
}

ExitCode Show(const Options& t) {
    const Report tReport = Run(t);
    Print(t.bJson ? JsonTextOf(tReport) : TextOf(tReport));
    return tReport.tVerdict.tExit;
}

std::string Description() {
    return "Measures the slave camera's rotation against the master's.\n"
           "Pictures are told by their content, not by their names: PNG with up to 8 bits per channel, JPEG, "
           "binary PGM with 8 bits, or raw planes with --raw. Colour becomes grey by its luminance; pixels "
           "are taken as they lie in the file. A picture that shows the whole frame has at least " +
           SizeText(LeastSizeOf(Camera::kMaster)) +
           ".\n"
           "Angles come raw, as measured, and rescaled, as the station receives them. The rescaled ones "
           "decide: allowed are " +
           AllowedRange(kRescaledLimit) + " degrees, raw " + AllowedRange(kRawLimit) +
           " degrees.\n"
           "Trust numbers: on lines across every side of the frame, " +
           Fixed(kLineStep, 0) +
           " px apart, the tool itself reads the dark line's centre, dark and bright level from the picture, "
           "and fits a straight line to the centres by least squares. The residual is the centres' RMS "
           "distance from that line; told apart from it is how far the farther of the side's two measured "
           "corners lies from the line. Of the cross it reads the grey levels in the search window. Warnings "
           "come with a residual above " +
           Fixed(kLargeResidual, 1) + " px, a corner more than " + Fixed(kLargeCornerDistance, 1) +
           " px from the line, less than " + Fixed(kLeastRead, 0) +
           " % of the lines read, dark and bright less than " + Fixed(kLowContrast, 0) +
           " grey levels apart, and the frame less than " + Fixed(kNearBorder, 0) +
           " px from the picture's border. A pair that fails has them as far as it came.";
}

std::string Footer() {
    return ExamplesHelp({"orvex-align measure master.png slave.png --calibration calibration.bin",
                         "orvex-align measure master.nv21 slave.nv21 --raw 1728x972 --calibration "
                         "calibration.bin --json",
                         "orvex-align measure master.jpg slave.jpg --calibration calibration.bin --record "
                         "AFProtect.txt",
                         "orvex-align measure master.png slave.png --calibration calibration.bin --report "
                         "report.html"}) +
           ExitCodesHelp(kMeasureExits);
}

} // namespace

void AddMeasureCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("measure", Description());
    tCommand
        .add_option("MASTER", pOptions->strMaster,
                    "The master camera's picture: PNG, JPEG or 8-bit binary PGM")
        ->required()
        ->check(FileName())
        ->type_name("");
    tCommand
        .add_option("SLAVE", pOptions->strSlave, "The slave camera's picture: PNG, JPEG or 8-bit binary PGM")
        ->required()
        ->check(FileName())
        ->type_name("");
    tCommand.add_option("--calibration", pOptions->strCalibration, CalibrationHelp())
        ->required()
        ->check(FileName())
        ->type_name("FILE");
    CLI::Option* const pRaw =
        tCommand
            .add_option("--raw", pOptions->strRaw,
                        "Both files are raw: their first width x height bytes are the plane, as in a YUV "
                        "4:2:0 or NV21 frame. Size in px, such as 1728x972")
            ->type_name("WxH");
    tCommand
        .add_option("--raw-slave", pOptions->strSlaveRaw,
                    "With --raw: size of the slave's plane in px. Default: that of --raw")
        ->needs(pRaw)
        ->type_name("WxH");
    tCommand.add_flag("--json", pOptions->bJson, "Print one JSON object instead of text");
    tCommand
        .add_option("--record", pOptions->strRecord,
                    "Also write the autofocus record file, encrypted for this module; all zeros inside if "
                    "the chart could not be measured")
        ->check(FileName())
        ->type_name("FILE");
    tCommand
        .add_option("--report", pOptions->strReport,
                    "Also write one HTML page with both pictures, what was found in them, and every number")
        ->check(FileName())
        ->type_name("FILE");
    tCommand
        .add_option("--truth", pOptions->strTruth,
                    "Also compare with the truth.json of a rendered pair: differences in degrees and px")
        ->check(FileName())
        ->type_name("FILE");
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

} // namespace tools

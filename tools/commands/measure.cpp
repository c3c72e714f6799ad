#include "commands/commands.h"

#include "basics/console.h"
#include "basics/files.h"
#include "basics/text_table.h"
#include "basics/tool_error.h"
#include "batch/measuring.h"
#include "commands/help.h"
#include "commands/options.h"
#include "measuring/calibration.h"
#include "pictures/formats.h"
#include "pictures/thumbnail.h"
#include "report/html_text.h"
#include "report/outputs.h"
#include "trust/numbers.h"

#include <climits>
#include <fmt/format.h>
#include <iostream>
#include <malloc.h>
#include <memory>

namespace tools {
namespace {

struct Options {
    std::string strMaster, strSlave, strCalibration, strTruth, strRecord, strReport;
    RawOptions tRaw;
    DoubtOptions tDoubt;
    ProductOption tProduct;
    bool bJson = false, bVerbose = false, bShow = false;

    MeasuringSetup Setup() const {
        MeasuringSetup setup = tProduct.Read().tSetup;
        tDoubt.ApplyTo(setup.tLimits);
        return setup;
    }
};

NewFile RecordFile(const Options& tOptions, const Picture& tMaster, const Picture& tSlave,
                   const std::string& strCalibration) {
    const std::string strRecord = RecordOf(tMaster, tSlave, strCalibration);
    if (strRecord.empty())
        throw ToolError(tOptions.strRecord, "is not written, because the record could not be encrypted",
                        "Measure again, and tell the maker if it stays so");
    return {tOptions.strRecord, strRecord};
}

void RefuseTooSmall(Camera tCamera, const Picture& tPicture) {
    const PictureSize tLeast = LeastSizeOf(tCamera);
    if (tPicture.nColumns < tLeast.nColumns || tPicture.nRows < tLeast.nRows)
        throw ToolError(
            tPicture.strFile,
            fmt::format("is {}, but the {} must be at least {} to show the whole frame around the cross",
                        SizeText(tPicture.Size()), NameOf(tCamera), SizeText(tLeast)),
            "Name the picture as the camera took it, not a reduced copy or a part of it");
}

void RefuseUnfitSize(Camera tCamera, const Picture& tPicture, const MeasuringSetup& setup) {
    if (setup.strProduct.empty())
        return RefuseTooSmall(tCamera, tPicture);
    const Parameters& t = setup.tParameters;
    const PictureSize tOwn = tCamera == Camera::kMaster ? t.tMaster : t.tSlave;
    if (t.bSizesHold && tPicture.Size() != tOwn)
        throw ToolError(tPicture.strFile,
                        fmt::format("is {}, but {} says {} for the {}", SizeText(tPicture.Size()),
                                    setup.strProduct, SizeText(tOwn), NameOf(tCamera)),
                        "Name the picture as that product's camera took it, or the right product");
}

// An output in the place of one of the sources would destroy it, and one of two outputs in one place the
// other.
void RefuseToReplaceSource(const Options& tOptions) {
    for (const std::string& strOutput : {tOptions.strRecord, tOptions.strReport})
        for (const std::string& strInput : {tOptions.strMaster, tOptions.strSlave, tOptions.strCalibration,
                                            tOptions.strTruth, tOptions.tProduct.File()})
            if (IsSameFile(strInput, strOutput))
                throw ToolError(strOutput, "is an input of this measurement and is not replaced",
                                "Name another file for the output");
    if (IsSameFile(tOptions.strRecord, tOptions.strReport))
        throw ToolError(tOptions.strReport, "is named for the record and for the report", "Name two files");
}

// The phone would read another product's record as its own.
void RefuseRecordOfOther(const Options& tOptions, const MeasuringSetup& setup) {
    const std::vector<std::string> aChanged = ChangedParameters(setup.tParameters);
    if (!tOptions.strRecord.empty() && !aChanged.empty())
        throw ToolError(tOptions.strRecord,
                        fmt::format("is not written: {} changes the library's parameters ({}), and a record "
                                    "holds what the phone measures with its own",
                                    setup.strProduct, Listed(aChanged)),
                        "Measure without --record, or write the record without --product");
}

Report Run(const Options& tOptions, const MeasuringSetup& setup) {
    RefuseToReplaceSource(tOptions);
    RefuseRecordOfOther(tOptions, setup);
    const std::optional<PictureSize> oRaw = tOptions.tRaw.MasterSize(), oSlaveRaw = tOptions.tRaw.SlaveSize();
    const bool bReport = !tOptions.strReport.empty();
    Picture tMaster = ReadPicture(tOptions.strMaster, oRaw, bReport),
            tSlave = ReadPicture(tOptions.strSlave, oSlaveRaw, bReport);
    RefuseUnfitSize(Camera::kMaster, tMaster, setup);
    RefuseUnfitSize(Camera::kSlave, tSlave, setup);
    const std::string strCalibration =
        tOptions.strCalibration.empty() ? "" : ReadCalibration(tOptions.strCalibration);
    std::optional<Truth> oTruth;
    if (!tOptions.strTruth.empty())
        oTruth = ReadTruth(tOptions.strTruth);
    const Measurement measurement = Measure(tMaster, tSlave, setup);
    std::vector<NewFile> aOutputs;
    if (!tOptions.strRecord.empty())
        aOutputs.push_back(RecordFile(tOptions, tMaster, tSlave, strCalibration));
    Report report = ReportOf(std::move(tMaster), std::move(tSlave), measurement, setup);
    report.tExit = tOptions.tDoubt.Answer(report.tVerdict.tVerdict.tExit);
    report.strCalibrationFile = tOptions.strCalibration;
    report.strRecordFile = tOptions.strRecord;
    report.oTruth = oTruth;
    if (bReport)
        aOutputs.push_back({tOptions.strReport, HtmlOf(report)});
    WriteFiles(aOutputs);
    return report;
}

ExitCode Show(const Options& options) {
    try {
        const Report report = Run(options, options.Setup());
        Print(options.bJson ? JsonTextOf(report) : options.bVerbose ? TextOf(report) : BriefTextOf(report));
        return report.tExit;
    } catch (const ToolError& tError) {
        if (options.bJson)
            Print(JsonTextOf(tError));
        throw;
    }
}

std::string AnswerFor(const Options& options, const MeasuringSetup& setup) {
    try {
        const Report report = Run(options, setup);
        return options.bShow
                   ? DataUrl("image/png", ThumbnailOf(report.tMaster.tPicture, report.tSlave.tPicture))
                   : JsonTextOf(report);
    } catch (const ToolError& tError) {
        return JsonTextOf(tError);
    }
}

void AnswerAll(Options options) {
    // Pictures are large: what one leaves is kept for the next, so that the system need not clear it again.
    mallopt(M_MMAP_THRESHOLD, 1 << 25); // the most that it may be
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    const MeasuringSetup setup = options.Setup();
    const auto Next = [](std::string& str) { return bool(std::getline(std::cin, str, '\0')); };
    while (Next(options.strMaster) && Next(options.strSlave) && (!options.bShow || Next(options.strReport)))
        Print(AnswerFor(options, setup) + '\0');
}

std::string Description() {
    return fmt::format(
        "Measures the slave camera's rotation against the master's.\n"
        "Pictures are told by their content, not by their names: {}, or raw planes with --raw. Colour "
        "becomes grey by its luminance; pixels are taken as they lie in the file. A picture that shows the "
        "whole frame has at least {}.\n"
        "Angles are the slave's less the master's, in degrees. In the picture of a camera turned by a "
        "positive angle Rx, about the horizontal axis, the frame's bottom side is longer than its top side; "
        "Ry, about the vertical one, the left side is longer than the right one; Rz, about the optical axis, "
        "the right end of the horizontal bar is higher than its left end.\n"
        "Angles come raw, as measured, and rescaled, as the station receives them. Below 1 degree in "
        "magnitude both are the same; from there on the rescaled magnitude is (raw - 0.2) * 1.8 / 2.3 + 0.2. "
        "The rescaled ones decide: allowed are {} degrees, raw {} degrees.\n"
        "A second reading of both pictures, the tool's own, tells each angle once more, with its standard "
        "uncertainty. A pair within range is doubtful where something speaks against it: the two readings "
        "differ, an angle is uncertain or too near to its limit, a trust number is beyond its limit, both "
        "pictures are the same, or there is no second reading.\n"
        "Trust numbers: on lines across every side of the frame, {:g} px apart, the tool itself reads the "
        "dark line's centre, dark and bright level from the picture, and fits a straight line to the centres "
        "by least squares. The residual is the centres' RMS distance from that line; told apart from it is "
        "how far the farther of the side's two measured corners lies from the line. Of the cross it reads "
        "the grey levels in the search window. Warnings come with {}. A pair that fails has them as far as "
        "it came.",
        ListedFormats(&PictureFormat::szLimits, ", "), SizeText(LeastSizeOf(Camera::kMaster)),
        AllowedRange(Limits().dRescaled), AllowedRange(Limits().Raw()), kLineStep, TrustLimitsHelp());
}

std::string Footer() {
    return ExamplesHelp({"measure master.png slave.png",
                         "measure master.nv21 slave.nv21 --raw 1728x972 --json",
                         "measure master.jpg slave.jpg --calibration calibration.bin --record "
                         "AFProtect.txt",
                         "measure master.png slave.png --report report.html"}) +
           ExitCodesHelp(VerdictExits());
}

} // namespace

void AddMeasureCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("measure", Description());
    const std::string strFormats = ListedFormats(&PictureFormat::szCalled, " or ");
    AddFile(tCommand, "MASTER", pOptions->strMaster, "The master camera's picture: " + strFormats, "")
        .required();
    AddFile(tCommand, "SLAVE", pOptions->strSlave, "The slave camera's picture: " + strFormats, "")
        .required();
    CLI::Option& tCalibration =
        AddCalibration(tCommand, pOptions->strCalibration,
                       "only the record needs it, whose key is made from it; no angle does");
    pOptions->tRaw.AddTo(tCommand);
    AddJson(tCommand, pOptions->bJson);
    pOptions->tProduct.AddTo(tCommand, "the pair is measured with its parameters and judged by its limits");
    tCommand.add_flag("--verbose", pOptions->bVerbose, "Print all numbers, and what the library printed");
    pOptions->tDoubt.AddTo(tCommand);
    AddFile(
        tCommand, "--record", pOptions->strRecord,
        "Also write the autofocus record file, encrypted for this module; all zeros inside if the chart "
        "could not be measured. The phone's own, /sdcard/AFProtect.txt, is then replaced too if there is a "
        "folder /sdcard")
        .needs(&tCalibration);
    AddFile(tCommand, "--report", pOptions->strReport,
            "Also write one HTML page with both pictures, what was found in them, and every number");
    AddFile(tCommand, "--truth", pOptions->strTruth,
            "Also compare with the truth.json of a rendered pair: differences in degrees and px");
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] { tExit = Show(*pOptions); });
}

void AddMeasureEachCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand(kMeasureEach)->group("");
    pOptions->tRaw.AddTo(tCommand);
    pOptions->tDoubt.AddTo(tCommand);
    pOptions->tProduct.AddTo(tCommand, "as measure has it");
    tCommand.add_flag("--show", pOptions->bShow);
    tCommand.callback([pOptions, &tExit] {
        AnswerAll(*pOptions);
        tExit = ExitCode::kDone;
    });
}

} // namespace tools

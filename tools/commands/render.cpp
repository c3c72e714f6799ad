#include "commands/render.h"

#include "basics/console.h"
#include "basics/files.h"
#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "chart/blur.h"
#include "commands/man_page.h"
#include "commands/option_checks.h"
#include "study/rendered_pair.h"
#include "study/replacement.h"
#include "study/study.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>

namespace tools {
namespace {

// The renderer's range, for each camera and axis.
constexpr double dMaxAngle = 45.0;
constexpr double dMaxNoise = 255.0;

// Edges sharper than a lens draws them cost the measurement some hundredths of a degree.
chart::Capture LensCapture() {
    chart::Capture t;
    t.dBlurSigma = 1.0;
    return t;
}

struct Options {
    std::string strFolder;
    std::string strSize = "1728x972";
    chart::Pose tMaster, tRelative;
    chart::Capture tCapture = LensCapture(); // of both cameras
    std::size_t nCount = 0;                  // of a study; 0 for a single pair
    std::size_t nRepeats = 1;
    double dRange = 1.5, dMasterRange = 0;
    std::optional<double> oMaxNoise, oMaxBlur; // of a study with values drawn up to them
    bool bResume = false, bOverwrite = false;
};

// dRange: how far a study's angles are drawn away.
void CheckPose(const char* szAxis, double dAngle, double dRange) {
    if (std::fabs(dAngle) + dRange <= dMaxAngle)
        return;
    const std::string strRange = dRange == 0 ? "" : " +- " + Fixed(dRange, 4) + " deg";
    throw CLI::ValidationError("--r" + std::string(szAxis) + " and --master-r" + szAxis,
                               "the slave's angle, " + Fixed(dAngle, 4) + " deg" + strRange + ", is beyond " +
                                   Fixed(dMaxAngle, 0) + " deg");
}

chart::PairSetup SetupOf(const Options& t) {
    const chart::Pose tSlave = t.tMaster + t.tRelative;
    const double dRange = t.nCount == 0 ? 0 : t.dRange + t.dMasterRange;
    CheckPose("x", tSlave.dRx, dRange);
    CheckPose("y", tSlave.dRy, dRange);
    CheckPose("z", tSlave.dRz, dRange);
    const PictureSize tSize = ParsedSize("--size", t.strSize);
    chart::PairSetup tSetup;
    tSetup.tMaster = chart::ScaledTo(chart::DefaultMaster(), tSize.nColumns, tSize.nRows);
    tSetup.tSlave = chart::ScaledTo(chart::DefaultSlave(), tSize.nColumns, tSize.nRows);
    tSetup.tMasterPose = t.tMaster;
    tSetup.tRelativePose = t.tRelative;
    tSetup.tMasterCapture = tSetup.tSlaveCapture = t.tCapture;
    return tSetup;
}

// What a study draws up to, from dLowest on.
double Highest(const char* szName, double dLowest, const std::optional<double>& oMax) {
    if (oMax && *oMax < dLowest)
        throw CLI::ValidationError(std::string("--max-") + szName,
                                   Fixed(*oMax, 4) + " is below --" + szName + ", " + Fixed(dLowest, 4));
    return oMax.value_or(dLowest);
}

std::vector<std::string> Row(const std::string& strFile, const chart::Pose& t) {
    return {strFile, Fixed(t.dRx, 4), Fixed(t.dRy, 4), Fixed(t.dRz, 4)};
}

std::string Summary(const Options& t, const PairFiles& tFiles) {
    return "Wrote, with the poses in degrees\n" +
           Table({{"", "Rx", "Ry", "Rz"},
                  Row(tFiles.strMaster, t.tMaster),
                  Row(tFiles.strSlave, t.tMaster + t.tRelative),
                  Row(tFiles.strTruth + " (slave minus master)", t.tRelative),
                  {tFiles.strCalibration, "-", "-", "-"}}) +
           "\nMeasure it:\n  orvex-align measure " + ShellWord(tFiles.strMaster) + " " +
           ShellWord(tFiles.strSlave) + " --calibration " + ShellWord(tFiles.strCalibration) + " --truth " +
           ShellWord(tFiles.strTruth) + "\n";
}

void RenderOne(const Options& t) {
    const chart::PairSetup tSetup = SetupOf(t);
    const PairFiles tFiles(t.strFolder);
    const std::vector<NewFile> aFiles = RenderedFiles(tSetup, tFiles, t.tCapture.nSeed);
    if (!t.bOverwrite)
        RefuseToReplace(aFiles);
    CreateFolder(t.strFolder);
    WriteFiles(aFiles);
    Print(Summary(t, tFiles));
}

ExitCode RenderMany(const Options& t) {
    const Study tStudy = {.strFolder = t.strFolder,
                          .tCentre = SetupOf(t),
                          .nSeed = t.tCapture.nSeed,
                          .nCount = t.nCount,
                          .nRepeats = t.nRepeats,
                          .dRange = t.dRange,
                          .dMasterRange = t.dMasterRange,
                          .dMaxNoise = Highest("noise", t.tCapture.dNoiseSigma, t.oMaxNoise),
                          .dMaxBlur = Highest("blur", t.tCapture.dBlurSigma, t.oMaxBlur),
                          .bResume = t.bResume,
                          .bOverwrite = t.bOverwrite};
    const StudyOutcome tOutcome = WriteStudy(tStudy);
    if (tOutcome.nSignal != 0) {
        std::fputs(("orvex-align: stopped after " + std::to_string(tOutcome.nPairs) + " of " +
                    std::to_string(t.nCount * t.nRepeats) +
                    " pairs; these are whole, the list is not written.\n"
                    "  Go on with the same command and --resume.\n")
                       .c_str(),
                   stderr);
        return static_cast<ExitCode>(kSignal + tOutcome.nSignal);
    }
    Print("Wrote " + std::to_string(t.nCount * t.nRepeats) + " pairs and " + Harmless(tOutcome.strList) +
          "\n\nMeasure them:\n  orvex-align batch " + ShellWord(tOutcome.strList) + " --out " +
          ShellWord(std::filesystem::path(t.strFolder) / "results.csv") +
          (t.nRepeats > 1 ? " --repeatability" : "") + "\n");
    return kDone;
}

ExitCode Run(const Options& t) {
    if (t.nCount > 0)
        return RenderMany(t);
    RenderOne(t);
    return kDone;
}

// strWhat: what the number is; its unit and its range follow.
void AddNumber(CLI::App& tCommand, const char* szName, double& d, double dLowest, double dHighest,
               const char* szType, const std::string& strWhat, const char* szUnit) {
    tCommand.add_option(szName, d, strWhat + ", " + Fixed(dLowest, 0) + " to " + Fixed(dHighest, 0) + szUnit)
        ->check(Within(dLowest, dHighest))
        ->type_name(szType)
        ->capture_default_str();
}

void AddPose(CLI::App& tCommand, Options& t) {
    const auto Add = [&](const char* szName, double& d, const char* szWhat) {
        AddNumber(tCommand, szName, d, -dMaxAngle, dMaxAngle, "DEG", szWhat, " degrees");
    };
    Add("--rx", t.tRelative.dRx, "Slave's rotation against the master about x");
    Add("--ry", t.tRelative.dRy, "Likewise about y");
    Add("--rz", t.tRelative.dRz, "Likewise about z, the optical axis");
    Add("--master-rx", t.tMaster.dRx, "Master's rotation against the chart about x");
    Add("--master-ry", t.tMaster.dRy, "Likewise about y");
    Add("--master-rz", t.tMaster.dRz, "Likewise about z");
}

void AddCapture(CLI::App& tCommand, chart::Capture& t) {
    AddNumber(tCommand, "--blur", t.dBlurSigma, 0, chart::kMaxBlurSigma, "PX", "Blur, standard deviation",
              " px");
    AddNumber(tCommand, "--noise", t.dNoiseSigma, 0, dMaxNoise, "GREY", "Noise, standard deviation",
              " grey levels");
    AddNumber(tCommand, "--vignetting", t.dVignetting, 0, 1, "SHARE",
              "Share of the light lost at the picture's corners", "");
    AddNumber(tCommand, "--gain", t.dGain, 0, 1000, "FACTOR", "Factor on the grey levels", "");
    tCommand.add_option("--seed", t.nSeed, "Seed of noise and calibration image, a whole number from 0")
        ->check(WholeNumber())
        ->type_name("N")
        ->capture_default_str();
}

void AddStudy(CLI::App& tCommand, Options& t) {
    auto* const pCount =
        tCommand
            .add_option("--count", t.nCount,
                        "Render a study of this many modules instead of one pair, 1 to 100000")
            ->check(Within(1, 100000))
            ->check(WholeNumber())
            ->type_name("N");
    tCommand
        .add_option("--repeats", t.nRepeats,
                    "Pairs of each module, 1 to 1000: same angles and id, noise of their own")
        ->check(Within(1, 1000))
        ->check(WholeNumber())
        ->type_name("N")
        ->capture_default_str()
        ->needs(pCount);
    const auto AddRange = [&](const char* szName, double& d, const char* szWhat) {
        AddNumber(tCommand, szName, d, 0, dMaxAngle, "DEG", szWhat, " degrees");
        tCommand.get_option(szName)->needs(pCount);
    };
    tCommand
        .add_flag("--resume", t.bResume,
                  "Keep the first pairs that an interrupted study of the same options left whole; "
                  "the others need --overwrite where they differ")
        ->needs(pCount);
    AddRange("--range", t.dRange, "How far each module's angles are drawn to both sides of --rx, --ry, --rz");
    AddRange("--master-range", t.dMasterRange, "Likewise around --master-rx, --master-ry, --master-rz");
}

// Not given: all pairs have the lowest.
void AddHighest(CLI::App& tCommand, const std::string& strOf, std::optional<double>& o, double dHighest,
                const char* szType) {
    tCommand
        .add_option("--max-" + strOf, o,
                    "Draw each pair's " + strOf + " uniformly from --" + strOf + " to this, at most " +
                        Fixed(dHighest, 0))
        ->check(Within(0, dHighest))
        ->type_name(szType)
        ->needs(tCommand.get_option("--count"));
}

constexpr char szDescription[] =
    "Renders a pair of chart pictures with known rotation, or a study of many.\n"
    "A pair is four files in the folder --out: master.pgm, slave.pgm, truth.json and calibration.bin. The "
    "same options give the same bytes on every machine.\n"
    "With --count it is a study: a folder for each pair, 0001 and so on (0001-0001 with --repeats), with "
    "angles drawn uniformly, and last LIST.csv, ready for batch, with the columns id, master, slave, "
    "calibration and the truth in true_rx_deg, true_ry_deg and true_rz_deg. An earlier list goes before the "
    "first pair changes. Angles, noise and calibration image of each module follow from --seed, likewise the "
    "pairs' levels of noise and blur with --max-noise and --max-blur, which truth.json tells. A progress bar "
    "shows on a terminal.";

constexpr std::array<ExitMeaning, 6> aExits = {{
    {kDone, "all files written"},
    {kUnfitFile, "a file could not be written, or is there with other content"},
    {kWrongUsage, "wrong usage"},
    {kSignal + 1, "stopped by the terminal's end (SIGHUP); a study goes on with --resume"},
    {kSignal + 2, "stopped by Ctrl-C (SIGINT), likewise"},
    {kSignal + 15, "stopped by SIGTERM, likewise"},
}};

std::string Footer() {
    return ExamplesHelp({"orvex-align render --out demo --rx 0.8 --ry -0.5 --rz 0.3 --noise 2",
                         "orvex-align render --out study --count 200 --range 1.5 --noise 2",
                         "orvex-align render --out range --count 200 --noise 1 --max-noise 4 --max-blur 2.5",
                         "orvex-align render --out gauge --count 10 --repeats 5 --noise 2"}) +
           ExitCodesHelp(aExits);
}

} // namespace

void AddRenderCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("render", szDescription);
    tCommand
        .add_option("--out", pOptions->strFolder,
                    "Folder for the pair's files or the study; created if missing")
        ->required()
        ->check(FileName())
        ->type_name("DIR");
    tCommand.add_flag("--overwrite", pOptions->bOverwrite,
                      "Replace files that are there with other content; without it they are refused");
    AddPose(tCommand, *pOptions);
    tCommand
        .add_option("--size", pOptions->strSize,
                    "Size of both pictures in px, with the same field of view; the chart can be measured "
                    "from 1440x810")
        ->type_name("WxH")
        ->capture_default_str();
    AddCapture(tCommand, pOptions->tCapture);
    AddStudy(tCommand, *pOptions);
    AddHighest(tCommand, "noise", pOptions->oMaxNoise, dMaxNoise, "GREY");
    AddHighest(tCommand, "blur", pOptions->oMaxBlur, chart::kMaxBlurSigma, "PX");
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] { tExit = Run(*pOptions); });
}

} // namespace tools

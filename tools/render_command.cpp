#include "render_command.h"

#include "calibration.h"
#include "chart/blur.h"
#include "console.h"
#include "files.h"
#include "option_checks.h"
#include "pgm.h"
#include "text_table.h"
#include "truth.h"

#include <cmath>
#include <filesystem>
#include <memory>

namespace tools {
namespace {

// The renderer's range, for each camera and axis.
constexpr double dMaxAngle = 45.0;

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
};

struct PairFiles {
    explicit PairFiles(const std::filesystem::path& tFolder)
        : strMaster(tFolder / "master.pgm"), strSlave(tFolder / "slave.pgm"),
          strTruth(tFolder / "truth.json"), strCalibration(tFolder / "calibration.bin") {}
    std::string strMaster, strSlave, strTruth, strCalibration;
};

void CheckPose(const char* szAxis, double dAngle) {
    if (std::fabs(dAngle) > dMaxAngle)
        throw CLI::ValidationError("--r" + std::string(szAxis) + " and --master-r" + szAxis,
                                   "the slave's angle, " + Fixed(dAngle, 4) + " deg, is beyond " +
                                       Fixed(dMaxAngle, 0) + " deg");
}

chart::PairSetup SetupOf(const Options& t) {
    const chart::Pose tSlave = t.tMaster + t.tRelative;
    CheckPose("x", tSlave.dRx);
    CheckPose("y", tSlave.dRy);
    CheckPose("z", tSlave.dRz);
    const PictureSize tSize = ParsedSize("--size", t.strSize);
    chart::PairSetup tSetup;
    tSetup.tMaster = chart::ScaledTo(chart::DefaultMaster(), tSize.nColumns, tSize.nRows);
    tSetup.tSlave = chart::ScaledTo(chart::DefaultSlave(), tSize.nColumns, tSize.nRows);
    tSetup.tMasterPose = t.tMaster;
    tSetup.tRelativePose = t.tRelative;
    tSetup.tMasterCapture = tSetup.tSlaveCapture = t.tCapture;
    return tSetup;
}

std::string PgmOf(const chart::Shot& t) {
    return EncodePgm(t.nWidth, t.nHeight, {reinterpret_cast<const char*>(t.aGrey.data()), t.aGrey.size()});
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

void Run(const Options& t) {
    const chart::PairSetup tSetup = SetupOf(t);
    const PairFiles tFiles(t.strFolder);
    CreateFolder(t.strFolder);
    const chart::Pair tPair = chart::RenderPair(tSetup);
    WriteFiles({{tFiles.strMaster, PgmOf(tPair.tMaster)},
                {tFiles.strSlave, PgmOf(tPair.tSlave)},
                {tFiles.strTruth, TruthJson(tSetup, tPair).dump(2) + "\n"},
                {tFiles.strCalibration, MadeUpCalibration(t.tCapture.nSeed)}});
    Print(Summary(t, tFiles));
}

void AddNumber(CLI::App& tCommand, const char* szName, double& d, double dLowest, double dHighest,
               const char* szUnit, const char* szWhat) {
    tCommand.add_option(szName, d, szWhat)
        ->check(Within(dLowest, dHighest))
        ->type_name(szUnit)
        ->capture_default_str();
}

void AddPose(CLI::App& tCommand, Options& t) {
    const auto Add = [&](const char* szName, double& d, const char* szWhat) {
        AddNumber(tCommand, szName, d, -dMaxAngle, dMaxAngle, "DEG", szWhat);
    };
    Add("--rx", t.tRelative.dRx, "Slave's rotation against the master about x, -45 to 45 degrees");
    Add("--ry", t.tRelative.dRy, "Likewise about y");
    Add("--rz", t.tRelative.dRz, "Likewise about z, the optical axis");
    Add("--master-rx", t.tMaster.dRx, "Master's rotation against the chart about x, -45 to 45 degrees");
    Add("--master-ry", t.tMaster.dRy, "Likewise about y");
    Add("--master-rz", t.tMaster.dRz, "Likewise about z");
}

void AddCapture(CLI::App& tCommand, chart::Capture& t) {
    AddNumber(tCommand, "--blur", t.dBlurSigma, 0, chart::kMaxBlurSigma, "PX",
              "Blur, standard deviation in px, 0 to 50");
    AddNumber(tCommand, "--noise", t.dNoiseSigma, 0, 255, "GREY",
              "Noise, standard deviation in grey levels, 0 to 255");
    AddNumber(tCommand, "--vignetting", t.dVignetting, 0, 1, "SHARE",
              "Light lost at the picture's corners, 0 to 1");
    AddNumber(tCommand, "--gain", t.dGain, 0, 1000, "FACTOR", "Factor on the grey levels, 0 to 1000");
    tCommand.add_option("--seed", t.nSeed, "Seed of noise and calibration image, a whole number from 0")
        ->check(WholeNumber())
        ->type_name("N")
        ->capture_default_str();
}

constexpr char szDescription[] =
    "renders a pair of chart pictures with known rotation, ready to be measured\n"
    "Both cameras look at one chart. Beside the pictures lie the truth, for measure --truth, and a made-up "
    "calibration image. The same options give the same bytes.";

constexpr char szExamples[] =
    "EXAMPLES\n"
    "  orvex-align render --out demo --rx 0.8 --ry -0.5 --rz 0.3 --noise 2\n"
    "  orvex-align render --out demo --size 2104x1560 --vignetting 0.3 --seed 7\n\n";

constexpr std::array<ExitMeaning, 3> aExits = {{
    {kDone, "all four files written"},
    {kUnfitFile, "a file could not be written"},
    {kWrongUsage, "wrong usage"},
}};

} // namespace

void AddRenderCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("render", szDescription);
    tCommand
        .add_option("--out", pOptions->strFolder,
                    "Folder for master.pgm, slave.pgm, truth.json and calibration.bin; created if missing")
        ->required()
        ->type_name("DIR");
    AddPose(tCommand, *pOptions);
    tCommand
        .add_option("--size", pOptions->strSize,
                    "Size of both pictures in px, same field of view; to be measured at least 1440x810")
        ->type_name("WxH")
        ->capture_default_str();
    AddCapture(tCommand, pOptions->tCapture);
    tCommand.footer(szExamples + ExitCodesHelp(aExits));
    tCommand.callback([pOptions, &tExit] {
        Run(*pOptions);
        tExit = kDone;
    });
}

} // namespace tools

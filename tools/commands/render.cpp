#include "commands/commands.h"

#include "basics/console.h"
#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "commands/help.h"
#include "commands/options.h"
#include "study/rendered_pair.h"
#include "study/study.h"

#include <cmath>
#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <optional>

namespace tools {
namespace {

struct Options {
    Study tStudy; // of no module: a single pair
    std::string strSize = "1728x972";
    ProductOption tProduct;
};

// dRange: how far a study's angles are drawn away.
void CheckPose(const char* szAxis, double dAngle, double dRange) {
    if (std::fabs(dAngle) + dRange <= kMaxAngle)
        return;
    const std::string strRange = dRange == 0 ? "" : " +- " + Fixed(dRange, 4) + " deg";
    throw CLI::ValidationError(fmt::format("--r{0} and --master-r{0}", szAxis),
                               fmt::format("the slave's angle, {} deg{}, is beyond {} deg", Fixed(dAngle, 4),
                                           strRange, Fixed(kMaxAngle, 0)));
}

// oMax: what a study draws up to, from dLowest on.
void CheckHighest(const char* szName, double dLowest, std::optional<double> oMax) {
    if (oMax && *oMax < dLowest)
        throw CLI::ValidationError(std::string("--max-") + szName,
                                   Fixed(*oMax, 4) + " is below --" + szName + ", " + Fixed(dLowest, 4));
}

Study Checked(const Options& tOptions) {
    Study t = tOptions.tStudy;
    const Angles tSlave = t.tCentre.tMaster + t.tCentre.tRelative;
    const double dRange = t.nCount == 0 ? 0 : t.dRange + t.dMasterRange;
    CheckPose("x", tSlave.dRx, dRange);
    CheckPose("y", tSlave.dRy, dRange);
    CheckPose("z", tSlave.dRz, dRange);
    if (tOptions.tProduct.IsGiven()) {
        const Product product = tOptions.tProduct.Read();
        t.tCentre.tChart = ChartOf(product);
        t.tCentre.tMasterCamera = MasterOf(product);
        t.tCentre.tSlaveCamera = SlaveOf(product);
    } else {
        ScaleTo(ParsedSize("--size", tOptions.strSize), t.tCentre);
    }
    CheckHighest("noise", t.tCentre.dNoise, t.oMaxNoise);
    CheckHighest("blur", t.tCentre.dBlur, t.oMaxBlur);
    return t;
}

std::vector<std::string> Row(const std::string& strFile, const Angles& tAngles) {
    return {strFile, Fixed(tAngles.dRx, 4), Fixed(tAngles.dRy, 4), Fixed(tAngles.dRz, 4)};
}

// Behind a command that goes on with what was rendered.
std::string ProductArgument(const ProductOption& tProduct) {
    return tProduct.IsGiven() ? " --product " + ShellWord(tProduct.File()) : "";
}

ExitCode RenderOne(const Study& tStudy, const ProductOption& tProduct) {
    const PairOptions& tPair = tStudy.tCentre;
    const PairFiles tFiles = WritePair(tStudy.strFolder, tPair, tStudy.bOverwrite);
    Print(fmt::format("Wrote, with the poses in degrees\n{}\n"
                      "Measure it:\n  {} measure {} {} --calibration {} --truth {}{}\n",
                      Table({{"", "Rx", "Ry", "Rz"},
                             Row(tFiles.strMaster, tPair.tMaster),
                             Row(tFiles.strSlave, tPair.tMaster + tPair.tRelative),
                             Row(tFiles.strTruth + " (slave minus master)", tPair.tRelative),
                             {tFiles.strCalibration, "-", "-", "-"}}),
                      CalledAs(), ShellWord(tFiles.strMaster), ShellWord(tFiles.strSlave),
                      ShellWord(tFiles.strCalibration), ShellWord(tFiles.strTruth),
                      ProductArgument(tProduct)));
    return ExitCode::kDone;
}

ExitCode RenderMany(const Study& tStudy, const ProductOption& tProduct) {
    const StudyRoom tRoom = RoomFor(tStudy);
    const std::size_t nPairs = tStudy.Pairs();
    Tell(fmt::format("{} pairs take {}{} of {} that are free", nPairs,
                     tStudy.tCentre.strFormat == "png" ? "about " : "", RoomText(tRoom.nNeeded),
                     RoomText(tRoom.nFree)));
    const StudyOutcome tOutcome = WriteStudy(tStudy);
    if (tOutcome.nSignal != 0) {
        Tell(fmt::format("stopped after {} of {} pairs; these are whole, the list is not written.\n"
                         "  Go on with the same command.",
                         tOutcome.nPairs, nPairs));
        return StoppedBy(tOutcome.nSignal);
    }
    Print(fmt::format("Wrote {} pairs and {}\n\nMeasure them:\n  {} batch {} --out {}{}{}\n", nPairs,
                      Harmless(tOutcome.strList), CalledAs(), ShellWord(tOutcome.strList),
                      ShellWord(std::filesystem::path(tStudy.strFolder) / "results.csv"),
                      tStudy.nRepeats > 1 ? " --repeatability" : "", ProductArgument(tProduct)));
    return ExitCode::kDone;
}

// strWhat: what the number is; its unit and its range follow.
void AddNumber(CLI::App& tCommand, const char* szName, double& d, double dLowest, double dHighest,
               const char* szType, const std::string& strWhat, const char* szUnit) {
    tCommand.add_option(szName, d, strWhat + ", " + Fixed(dLowest, 0) + " to " + Fixed(dHighest, 0) + szUnit)
        ->check(Within(dLowest, dHighest))
        ->type_name(szType)
        ->capture_default_str();
}

void AddPose(CLI::App& tCommand, PairOptions& tPair) {
    const auto Add = [&](const char* szName, double& d, const char* szWhat) {
        AddNumber(tCommand, szName, d, -kMaxAngle, kMaxAngle, "DEG", szWhat, " degrees");
    };
    Add("--rx", tPair.tRelative.dRx, "Slave's rotation against the master about x");
    Add("--ry", tPair.tRelative.dRy, "Likewise about y");
    Add("--rz", tPair.tRelative.dRz, "Likewise about z, the optical axis");
    Add("--master-rx", tPair.tMaster.dRx, "Master's rotation against the chart about x");
    Add("--master-ry", tPair.tMaster.dRy, "Likewise about y");
    Add("--master-rz", tPair.tMaster.dRz, "Likewise about z");
}

void AddCapture(CLI::App& tCommand, PairOptions& tPair) {
    AddNumber(tCommand, "--blur", tPair.dBlur, 0, kMaxBlur, "PX", "Blur, standard deviation", " px");
    AddNumber(tCommand, "--noise", tPair.dNoise, 0, kMaxNoise, "GREY", "Noise, standard deviation",
              " grey levels");
    AddNumber(tCommand, "--vignetting", tPair.dVignetting, 0, 1, "SHARE",
              "Share of the light lost at the picture's corners", "");
    AddNumber(tCommand, "--gain", tPair.dGain, 0, 1000, "FACTOR", "Factor on the grey levels", "");
    tCommand.add_option("--seed", tPair.nSeed, "Seed of noise and calibration image, a whole number from 0")
        ->check(WholeNumber())
        ->type_name("N")
        ->capture_default_str();
}

void AddStudy(CLI::App& tCommand, Study& tStudy) {
    CLI::Option& tCount =
        AddCount(tCommand, "--count", tStudy.nCount,
                 "Render a study of this many modules instead of one pair, 1 to 100000", 1, 100000);
    AddCount(tCommand, "--repeats", tStudy.nRepeats,
             "Pairs of each module, 1 to 1000: same angles and id, noise of their own", 1, 1000)
        .capture_default_str()
        ->needs(&tCount);
    const auto AddRange = [&](const char* szName, double& d, const char* szWhat) {
        AddNumber(tCommand, szName, d, 0, kMaxAngle, "DEG", szWhat, " degrees");
        tCommand.get_option(szName)->needs(&tCount);
    };
    AddJobs(tCommand, tStudy.nJobs, "Pairs rendered at once, 1 to 1024").needs(&tCount);
    AddRange("--range", tStudy.dRange,
             "How far each module's angles are drawn to both sides of --rx, --ry, --rz");
    AddRange("--master-range", tStudy.dMasterRange, "Likewise around --master-rx, --master-ry, --master-rz");
    AddNumber(tCommand, "--decentring", tStudy.dDecentring, 0, 10000, "PX",
              "How far each module's crosses are drawn from where the cameras should see them, to both sides "
              "along x and y",
              " px");
    tCommand.get_option("--decentring")->needs(&tCount);
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

constexpr char kDescription[] =
    "Renders a pair of chart pictures with known rotation, or a study of many.\n"
    "A pair is four files in the folder --out: master.pgm, slave.pgm (or .png), truth.json and "
    "calibration.bin. "
    "The same options give the same bytes on every machine.\n"
    "With --count it is a study: a folder for each pair, 0001 and so on (0001-0001 with --repeats), with "
    "angles drawn uniformly, and last LIST.csv, ready for batch, with the columns id, master, slave, "
    "calibration and the truth in true_rx_deg, true_ry_deg and true_rz_deg. An earlier list goes before the "
    "first pair changes. Angles, noise and calibration image of each module follow from --seed, likewise the "
    "pairs' levels of noise and blur with --max-noise and --max-blur, which truth.json tells. How much room "
    "a "
    "study takes is told first, and refused where there is less. A progress bar shows on a terminal.";

std::string Footer() {
    return ExamplesHelp({"render --out demo --rx 0.8 --ry -0.5 --rz 0.3 --noise 2",
                         "render --out study --count 200 --range 1.5 --noise 2",
                         "render --out range --count 200 --noise 1 --max-noise 4 --max-blur 2.5",
                         "render --out gauge --count 10 --repeats 5 --noise 2"}) +
           ExitCodesHelp(
               {{ExitCode::kDone, "all files written"},
                {ExitCode::kUnfitFile, "a file could not be written, or is there with other content"}},
               "a study goes on with the same command");
}

} // namespace

void AddRenderCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    Study& tStudy = pOptions->tStudy;
    CLI::App& tCommand = *tApp.add_subcommand("render", kDescription);
    AddFile(tCommand, "--out", tStudy.strFolder,
            "Folder for the pair's files or the study; created if missing", "DIR")
        .required();
    tCommand.add_flag("--overwrite", tStudy.bOverwrite,
                      "Replace files that are there with other content; without it they are refused");
    tCommand
        .add_option("--format", tStudy.tCentre.strFormat,
                    "Format of the pictures: pgm or png, which takes less room")
        ->check(OneOf({"pgm", "png"}))
        ->type_name("FORM")
        ->capture_default_str();
    AddPose(tCommand, tStudy.tCentre);
    CLI::Option& tProduct =
        pOptions->tProduct.AddTo(tCommand, "its chart, cameras and picture sizes are rendered");
    tCommand
        .add_option("--size", pOptions->strSize,
                    "Size of both pictures in px, with the same field of view; the chart can be measured "
                    "from 1440x810")
        ->type_name("WxH")
        ->excludes(&tProduct)
        ->capture_default_str();
    AddCapture(tCommand, tStudy.tCentre);
    AddStudy(tCommand, tStudy);
    AddHighest(tCommand, "noise", tStudy.oMaxNoise, kMaxNoise, "GREY");
    AddHighest(tCommand, "blur", tStudy.oMaxBlur, kMaxBlur, "PX");
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] {
        const Study tChecked = Checked(*pOptions);
        tExit = tChecked.nCount > 0 ? RenderMany(tChecked, pOptions->tProduct)
                                    : RenderOne(tChecked, pOptions->tProduct);
    });
}

} // namespace tools

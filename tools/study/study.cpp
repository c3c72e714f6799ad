#include "study/study.h"

#include "basics/csv.h"
#include "basics/files.h"
#include "basics/json.h"
#include "basics/list_columns.h"
#include "basics/progress.h"
#include "basics/stop_signals.h"
#include "chart/noise.h"
#include "study/rendered_pair.h"
#include "study/replacement.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

// Apart from the streams of a single pair's noise and calibration image.
constexpr std::uint64_t kModuleStream = 0x20000;
constexpr std::uint64_t kAngleStream = 0x20001;
constexpr std::uint64_t kRepeatStream = 0x20002;
constexpr std::uint64_t kCaptureStream = 0x20003;

// Short enough to be typed after --seed and to be exact in every reader of JSON.
std::uint64_t ShortSeed(std::uint64_t nSeed, std::uint64_t nStream, std::uint64_t n) {
    return chart::DerivedSeed(chart::DerivedSeed(nSeed, nStream), n) >> 11;
}

// From 0 up to 1.
double UnitDraw(std::uint64_t nSeed, std::uint64_t nStream, std::uint64_t n) {
    return static_cast<double>(ShortSeed(nSeed, nStream, n)) / 0x1p53;
}

// In steps of 0.0001, so that list and truth show the number itself.
double Stepped(double d) {
    return std::round(d * 1e4) / 1e4;
}

// From -dRange to dRange.
double Drawn(std::uint64_t nSeed, std::uint64_t n, double dRange) {
    return Stepped(dRange * (2 * UnitDraw(nSeed, kAngleStream, n) - 1));
}

// Three draws from nFirst on.
Angles DrawnPose(std::uint64_t nSeed, std::uint64_t nFirst, double dRange) {
    return {Drawn(nSeed, nFirst, dRange), Drawn(nSeed, nFirst + 1, dRange), Drawn(nSeed, nFirst + 2, dRange)};
}

// The cross stands aside in the picture, as in a module whose lens does not sit in the sensor's middle.
void Decentre(std::uint64_t nSeed, std::uint64_t nFirst, double dRange, chart::Camera& camera) {
    camera.dPrincipalX += Drawn(nSeed, nFirst, dRange);
    camera.dPrincipalY += Drawn(nSeed, nFirst + 1, dRange);
}

double DrawnBetween(double dLowest, std::optional<double> oHighest, double dUnit) {
    const double dHighest = oHighest.value_or(dLowest);
    return std::clamp(Stepped(dLowest + (dHighest - dLowest) * dUnit), dLowest, dHighest);
}

struct StudyPair {
    std::string strId;
    std::string strFolder; // within the study's
    std::uint64_t nCalibrationSeed;
    PairOptions tOptions;
};

// Numbers of equal length sort as they count.
std::string Padded(std::size_t n, std::size_t nLargest) {
    return fmt::format("{:0{}}", n, std::max<std::size_t>(4, std::to_string(nLargest).size()));
}

// In the list's order.
StudyPair PairOf(const Study& tStudy, std::size_t nPair) {
    const std::size_t nModule = nPair / tStudy.nRepeats, nRepeat = nPair % tStudy.nRepeats;
    const std::uint64_t nSeed = ShortSeed(tStudy.tCentre.nSeed, kModuleStream, nModule);
    const std::string strId = Padded(nModule + 1, tStudy.nCount);
    PairOptions tOptions = tStudy.tCentre;
    tOptions.tRelative = tOptions.tRelative + DrawnPose(nSeed, 0, tStudy.dRange);
    tOptions.tMaster = tOptions.tMaster + DrawnPose(nSeed, 3, tStudy.dMasterRange);
    if (tStudy.dDecentring > 0) {
        Decentre(nSeed, 6, tStudy.dDecentring, tOptions.tMasterCamera);
        Decentre(nSeed, 8, tStudy.dDecentring, tOptions.tSlaveCamera);
    }
    tOptions.nSeed = nRepeat == 0 ? nSeed : ShortSeed(nSeed, kRepeatStream, nRepeat);
    // The pair's own seed draws first its noise, then its blur.
    tOptions.dNoise =
        DrawnBetween(tOptions.dNoise, tStudy.oMaxNoise, UnitDraw(tOptions.nSeed, kCaptureStream, 0));
    tOptions.dBlur =
        DrawnBetween(tOptions.dBlur, tStudy.oMaxBlur, UnitDraw(tOptions.nSeed, kCaptureStream, 1));
    return {strId, tStudy.nRepeats == 1 ? strId : strId + "-" + Padded(nRepeat + 1, tStudy.nRepeats), nSeed,
            tOptions};
}

std::string Head() {
    std::vector<std::string> aCells(kPairColumns.begin(), kPairColumns.end());
    aCells.insert(aCells.end(), kTruthColumns.begin(), kTruthColumns.end());
    return CsvLine(aCells);
}

std::string LineOf(const StudyPair& tPair) {
    const PairFiles tFiles(tPair.strFolder);
    const Angles& tTrue = tPair.tOptions.tRelative;
    return CsvLine({tPair.strId, tFiles.strMaster, tFiles.strSlave, tFiles.strCalibration,
                    Json(tTrue.dRx).dump(), Json(tTrue.dRy).dump(), Json(tTrue.dRz).dump()});
}

std::filesystem::path FolderOf(const Study& tStudy, const StudyPair& tPair) {
    return std::filesystem::path(tStudy.strFolder) / tPair.strFolder;
}

std::size_t CountOf(const Study& tStudy) {
    return tStudy.nCount * tStudy.nRepeats;
}

NewFile ListOf(const Study& tStudy) {
    NewFile tList = {std::filesystem::path(tStudy.strFolder) / "LIST.csv", Head()};
    for (std::size_t i = 0; i < CountOf(tStudy); ++i)
        tList.strBytes += LineOf(PairOf(tStudy, i));
    return tList;
}

// As far as it shows before anything is rendered.
void RefuseOtherStudy(const Study& tStudy, const NewFile& tList) {
    RefuseToReplace({tList});
    std::error_code tIgnored; // what else is wrong with a name shows on writing
    for (std::size_t i = 0; i < CountOf(tStudy); ++i) {
        const StudyPair tPair = PairOf(tStudy, i);
        const std::filesystem::path tFolder = FolderOf(tStudy, tPair);
        if (std::filesystem::exists(tFolder, tIgnored))
            RefuseToReplace(NotesOf(tPair.tOptions, PairFiles(tFolder), tPair.nCalibrationSeed));
    }
}

// The list speaks of whole pairs as they are: it goes before one of them changes.
void WriteStudyPair(const Study& tStudy, const StudyPair& tPair, const std::string& strList) {
    const std::filesystem::path tFolder = FolderOf(tStudy, tPair);
    const std::vector<NewFile> aFiles =
        RenderedFiles(tPair.tOptions, PairFiles(tFolder), tPair.nCalibrationSeed);
    if (std::ranges::all_of(aFiles, Holds))
        return;
    if (!tStudy.bOverwrite)
        RefuseToReplace(aFiles);
    CreateFolder(tFolder);
    RemoveFile(strList);
    WriteFiles(aFiles);
}

} // namespace

StudyOutcome WriteStudy(const Study& tStudy) {
    const NewFile tList = ListOf(tStudy);
    if (!tStudy.bOverwrite)
        RefuseOtherStudy(tStudy, tList);
    const StopSignals tStop;
    Progress tProgress(0, CountOf(tStudy));
    for (std::size_t i = 0; i < CountOf(tStudy); ++i) {
        if (const int nSignal = tStop.Take())
            return {"", nSignal, i};
        WriteStudyPair(tStudy, PairOf(tStudy, i), tList.strFile);
        tProgress.Step();
    }
    WriteFiles({tList});
    return {tList.strFile, 0, CountOf(tStudy)};
}

} // namespace tools

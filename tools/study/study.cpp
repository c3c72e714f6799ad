#include "study/study.h"

#include "basics/csv.h"
#include "basics/files.h"
#include "basics/json.h"
#include "basics/progress.h"
#include "basics/stop_signals.h"
#include "batch/list.h"
#include "chart/noise.h"
#include "study/rendered_pair.h"
#include "study/replacement.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// Apart from the streams of a single pair's noise and calibration image.
constexpr std::uint64_t nModuleStream = 0x20000;
constexpr std::uint64_t nAngleStream = 0x20001;
constexpr std::uint64_t nRepeatStream = 0x20002;
constexpr std::uint64_t nCaptureStream = 0x20003;

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
    return Stepped(dRange * (2 * UnitDraw(nSeed, nAngleStream, n) - 1));
}

// Three draws from nFirst on.
chart::Pose DrawnPose(std::uint64_t nSeed, std::uint64_t nFirst, double dRange) {
    return {Drawn(nSeed, nFirst, dRange), Drawn(nSeed, nFirst + 1, dRange), Drawn(nSeed, nFirst + 2, dRange)};
}

double DrawnBetween(double dLowest, double dHighest, double dUnit) {
    return std::clamp(Stepped(dLowest + (dHighest - dLowest) * dUnit), dLowest, dHighest);
}

// The pair's own seed draws first its noise, then its blur.
chart::Capture DrawnCapture(const Study& t, std::uint64_t nSeed) {
    chart::Capture tCapture = t.tCentre.tMasterCapture;
    tCapture.dNoiseSigma =
        DrawnBetween(tCapture.dNoiseSigma, t.dMaxNoise, UnitDraw(nSeed, nCaptureStream, 0));
    tCapture.dBlurSigma = DrawnBetween(tCapture.dBlurSigma, t.dMaxBlur, UnitDraw(nSeed, nCaptureStream, 1));
    tCapture.nSeed = nSeed;
    return tCapture;
}

struct StudyPair {
    std::string strId;
    std::string strFolder; // within the study's
    std::uint64_t nCalibrationSeed;
    chart::PairSetup tSetup;
};

// Numbers of equal length sort as they count.
std::string Padded(std::size_t n, std::size_t nLargest) {
    const std::string str = std::to_string(n);
    const std::size_t nWidth = std::max<std::size_t>(4, std::to_string(nLargest).size());
    return std::string(nWidth - str.size(), '0') + str;
}

// In the list's order.
StudyPair PairOf(const Study& t, std::size_t nPair) {
    const std::size_t nModule = nPair / t.nRepeats, nRepeat = nPair % t.nRepeats;
    const std::uint64_t nSeed = ShortSeed(t.nSeed, nModuleStream, nModule);
    const std::string strId = Padded(nModule + 1, t.nCount);
    StudyPair tPair = {strId, t.nRepeats == 1 ? strId : strId + "-" + Padded(nRepeat + 1, t.nRepeats), nSeed,
                       t.tCentre};
    tPair.tSetup.tRelativePose = t.tCentre.tRelativePose + DrawnPose(nSeed, 0, t.dRange);
    tPair.tSetup.tMasterPose = t.tCentre.tMasterPose + DrawnPose(nSeed, 3, t.dMasterRange);
    tPair.tSetup.tMasterCapture = tPair.tSetup.tSlaveCapture =
        DrawnCapture(t, nRepeat == 0 ? nSeed : ShortSeed(nSeed, nRepeatStream, nRepeat));
    return tPair;
}

std::string Head() {
    std::vector<std::string> aCells = {"id", "master", "slave", "calibration"};
    aCells.insert(aCells.end(), kTruthColumns.begin(), kTruthColumns.end());
    return CsvLine(aCells);
}

std::string LineOf(const StudyPair& t) {
    const PairFiles tFiles(t.strFolder);
    const chart::Pose& tTrue = t.tSetup.tRelativePose;
    return CsvLine({t.strId, tFiles.strMaster, tFiles.strSlave, tFiles.strCalibration, Json(tTrue.dRx).dump(),
                    Json(tTrue.dRy).dump(), Json(tTrue.dRz).dump()});
}

std::filesystem::path FolderOf(const Study& t, const StudyPair& tPair) {
    return std::filesystem::path(t.strFolder) / tPair.strFolder;
}

PairFiles FilesOf(const Study& t, const StudyPair& tPair) {
    return PairFiles(FolderOf(t, tPair));
}

std::size_t CountOf(const Study& t) {
    return t.nCount * t.nRepeats;
}

// Pairs from the first on that an earlier run left whole.
std::size_t PairsThere(const Study& t) {
    std::size_t n = 0;
    for (; n < CountOf(t); ++n) {
        const StudyPair tPair = PairOf(t, n);
        if (!IsWritten(tPair.tSetup, FilesOf(t, tPair), tPair.nCalibrationSeed))
            break;
    }
    return n;
}

NewFile ListOf(const Study& t) {
    NewFile tList = {std::filesystem::path(t.strFolder) / "LIST.csv", Head()};
    for (std::size_t i = 0; i < CountOf(t); ++i)
        tList.strBytes += LineOf(PairOf(t, i));
    return tList;
}

// As far as it shows before anything is rendered.
void RefuseOtherStudy(const Study& t, const NewFile& tList) {
    RefuseToReplace({tList});
    std::error_code tIgnored; // what else is wrong with a name shows on writing
    for (std::size_t i = 0; i < CountOf(t); ++i) {
        const StudyPair tPair = PairOf(t, i);
        if (std::filesystem::exists(FolderOf(t, tPair), tIgnored))
            RefuseToReplace(NotesOf(tPair.tSetup, FilesOf(t, tPair), tPair.nCalibrationSeed));
    }
}

// The list speaks of whole pairs as they are: it goes before one of them changes.
void WriteStudyPair(const Study& t, const StudyPair& tPair, const std::string& strList) {
    const PairFiles tFiles = FilesOf(t, tPair);
    const std::vector<NewFile> aFiles = RenderedFiles(tPair.tSetup, tFiles, tPair.nCalibrationSeed);
    if (std::ranges::all_of(aFiles, Holds))
        return;
    if (!t.bOverwrite)
        RefuseToReplace(aFiles);
    CreateFolder(FolderOf(t, tPair));
    RemoveFile(strList);
    WriteFiles(aFiles);
}

} // namespace

StudyOutcome WriteStudy(const Study& t) {
    const NewFile tList = ListOf(t);
    if (!t.bOverwrite)
        RefuseOtherStudy(t, tList);
    const StopSignals tStop;
    const std::size_t nThere = t.bResume ? PairsThere(t) : 0;
    Progress tProgress(nThere, CountOf(t));
    for (std::size_t i = nThere; i < CountOf(t); ++i) {
        if (const int nSignal = tStop.Take())
            return {"", nSignal, i};
        WriteStudyPair(t, PairOf(t, i), tList.strFile);
        tProgress.Step();
    }
    WriteFiles({tList});
    return {tList.strFile, 0, CountOf(t)};
}

} // namespace tools

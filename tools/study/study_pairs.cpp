#include "study/study_pairs.h"

#include "basics/csv.h"
#include "basics/json.h"
#include "basics/list_columns.h"
#include "chart/noise.h"

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

// Numbers of equal length sort as they count.
std::string Padded(std::size_t n, std::size_t nLargest) {
    return fmt::format("{:0{}}", n, std::max<std::size_t>(4, std::to_string(nLargest).size()));
}

} // namespace

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

PairFiles FilesOf(const Study& tStudy, const StudyPair& tPair) {
    return {std::filesystem::path(tStudy.strFolder) / tPair.strFolder, tPair.tOptions.strFormat};
}

std::string ListHeadLine() {
    std::vector<std::string> aCells(kPairColumns.begin(), kPairColumns.end());
    aCells.insert(aCells.end(), kTruthColumns.begin(), kTruthColumns.end());
    return CsvLine(aCells);
}

std::string ListLineOf(const StudyPair& tPair) {
    const PairFiles tFiles(tPair.strFolder, tPair.tOptions.strFormat);
    const Angles& tTrue = tPair.tOptions.tRelative;
    return CsvLine({tPair.strId, tFiles.strMaster, tFiles.strSlave, tFiles.strCalibration,
                    Json(tTrue.dRx).dump(), Json(tTrue.dRy).dump(), Json(tTrue.dRz).dump()});
}

} // namespace tools

#include "trust/pair_warnings.h"

#include "basics/text_table.h"
#include "measuring/verdict.h"
#include "reading/words.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

struct Kind {
    const char* szKey;
    const char* szText;  // with {what}: an angle, or what else is told; {value} and {limit}
    const char* szAnyOf; // {what} in general
};
constexpr Kind kSamePicture = {"same_picture",
                               "both pictures are the same: only {value} of their pixels differ. Name the "
                               "master's own picture and the slave's.",
                               ""};
constexpr Kind kNoReading = {"no_second_reading", "no second reading: {what}.",
                             "the reason stands in the row"};
constexpr Kind kDifference = {
    "readings_differ",
    "{what} degrees, {value} with twice the uncertainty, more than {limit}. Look in the report where their "
    "lines part, for dirt, shadow, glare or a bent chart.",
    "an angle: the two readings differ by N"};
constexpr Kind kUncertain = {"uncertain_angle",
                             "{what}: the second reading's standard uncertainty is {value} degrees, more "
                             "than {limit}. Check sharpness and light, and measure again.",
                             "an angle"};
constexpr Kind kNearLimit = {
    "near_limit",
    "{what}: it lies {value} degrees from its limit, nearer than twice its uncertainty plus the difference "
    "of the readings, {limit}. It may be out of range: measure again.",
    "an angle"};
constexpr Kind kSizes = {"different_sizes",
                         "the pictures differ in size: {what}. The angles allow for it; the record's shift "
                         "mixes pixels of both. Check that each picture is as its camera took it.",
                         "master N x N px, slave N x N px"};
constexpr Kind kMisfit = {"raw_size", "{what}. Check --raw and --raw-slave.",
                          "the file's length does not fit its size"};
constexpr std::array kKinds = {kMisfit,    kSamePicture, kNoReading, kDifference,
                               kUncertain, kNearLimit,   kSizes};

std::string Filled(const Kind& tKind, const std::string& strWhat, const std::string& strValue,
                   const std::string& strLimit) {
    return fmt::format(fmt::runtime(tKind.szText), fmt::arg("what", strWhat), fmt::arg("value", strValue),
                       fmt::arg("limit", strLimit));
}

Warning WarningOf(const Kind& tKind, const AxisName& tAxis, double dValue, double dLimit,
                  const std::string& strMore = "") {
    Warning t = {.szKind = tKind.szKey, .oValue = dValue, .oLimit = dLimit, .strText = {}};
    t.strText = Filled(tKind, tAxis.szLabel + strMore, Fixed(dValue, 4), Fixed(dLimit, 4));
    t.szAxis = tAxis.szKey;
    return t;
}

// The same picture given twice, by a slip; two photographs of one chart differ by their noise everywhere.
void AddSamePicture(const MeasuredPair& t, std::vector<Warning>& a) {
    constexpr double kHandful = 0.001; // share of the pixels
    const std::vector<unsigned char>&aMaster = t.tMaster.aGrey, &aSlave = t.tSlave.aGrey;
    if (t.tMaster.Size() != t.tSlave.Size())
        return;
    const double dLimit = kHandful * static_cast<double>(aMaster.size());
    std::size_t nDiffering = 0;
    for (std::size_t i = 0; i < aMaster.size() && static_cast<double>(nDiffering) <= dLimit; ++i)
        nDiffering += aMaster[i] != aSlave[i] ? 1 : 0;
    if (static_cast<double>(nDiffering) <= dLimit)
        a.push_back({.szKind = kSamePicture.szKey,
                     .oValue = static_cast<double>(nDiffering),
                     .oLimit = dLimit,
                     .strText = Filled(kSamePicture, "", std::to_string(nDiffering), "")});
}

void AddMissingReading(Camera tCamera, const ReadingOutcome& tOutcome, std::vector<Warning>& a) {
    if (tOutcome.oReading)
        return;
    // The trust numbers may tell more of a chart that shows in part.
    const bool bInPart =
        tOutcome.tReason == NoReading::kNoFrame || tOutcome.tReason == NoReading::kFrameCut ||
        tOutcome.tReason == NoReading::kSideHidden || tOutcome.tReason == NoReading::kNoCross;
    a.push_back({.szKind = kNoReading.szKey,
                 .oCamera = tCamera,
                 .strText = fmt::format("{} camera: {}", NameOf(tCamera),
                                        Filled(kNoReading, DescribeMissing(tOutcome), "", "")),
                 .nRank = bInPart ? 1 : 0});
}

// Where the chart is seen the size is right, and the file holds more behind its frame.
void AddMisfit(Camera tCamera, const Picture& tPicture, const ReadingOutcome& tOutcome,
               std::vector<Warning>& a) {
    if (!tPicture.strMisfit.empty() && !tOutcome.oReading)
        a.push_back({.szKind = kMisfit.szKey,
                     .oCamera = tCamera,
                     .strText = fmt::format("{} camera: {}", NameOf(tCamera),
                                            Filled(kMisfit, tPicture.strMisfit, "", ""))});
}

void AddAxis(const MeasuredPair& tPair, std::size_t nAxis, std::vector<Warning>& a) {
    const AxisName& tAxis = kAxes[nAxis];
    const UncertainNumber& tSecond = tPair.tMeasurement.oSecondAngles->aRaw[nAxis];
    const double dRaw = (*tPair.tMeasurement.tPair.oRaw).*tAxis.pAngle;
    const double dDifference = std::fabs(dRaw - tSecond.dValue), dUncertainty = std::sqrt(tSecond.dVariance);
    const double dReach = 2 * dUncertainty + dDifference; // so far off may the angle be
    const Limits& tLimits = tPair.tSetup.tLimits;
    if (!(dReach <= tLimits.dMaxDifference))
        a.push_back(WarningOf(kDifference, tAxis, dReach, tLimits.dMaxDifference,
                              ": the two readings differ by " + Fixed(dDifference, 4)));
    if (!(dUncertainty <= tLimits.dMaxUncertainty))
        a.push_back(WarningOf(kUncertain, tAxis, dUncertainty, tLimits.dMaxUncertainty));
    const double dDistance = tLimits.Raw() - std::fabs(dRaw);
    if (dDistance >= 0 && dDistance < dReach)
        a.push_back(WarningOf(kNearLimit, tAxis, dDistance, dReach));
}

} // namespace

std::vector<Warning> WarningsOf(const MeasuredPair& tPair) {
    std::vector<Warning> a;
    const Measurement& t = tPair.tMeasurement;
    AddMisfit(Camera::kMaster, tPair.tMaster, t.tMaster.tReading, a);
    AddMisfit(Camera::kSlave, tPair.tSlave, t.tSlave.tReading, a);
    AddSamePicture(tPair, a);
    AddMissingReading(Camera::kMaster, t.tMaster.tReading, a);
    AddMissingReading(Camera::kSlave, t.tSlave.tReading, a);
    for (std::size_t i = 0; i < kAxes.size() && IsMeasured(t.tPair) && t.oSecondAngles; ++i)
        AddAxis(tPair, i, a);
    const PictureSize tMaster = tPair.tMaster.Size(), tSlave = tPair.tSlave.Size();
    if (tMaster != tSlave && !tPair.tSetup.tParameters.bSizesHold)
        a.push_back(
            {.szKind = kSizes.szKey,
             .strText = Filled(
                 kSizes, fmt::format("master {}, slave {}", SizeText(tMaster), SizeText(tSlave)), "", ""),
             .nRank = 99,
             .bDoubt = false});
    return a;
}

std::optional<std::string> GeneralPairText(std::string_view strKind) {
    const auto p = std::ranges::find(kKinds, strKind, &Kind::szKey);
    return p != kKinds.end() ? std::optional(Filled(*p, p->szAnyOf, "N", "N")) : std::nullopt;
}

} // namespace tools

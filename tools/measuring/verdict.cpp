#include "measuring/verdict.h"

#include "Orvex_Alignment.h"
#include "basics/text_table.h"
#include "measuring/quantities.h"

#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

bool LacksAnAngle(const Angles& t) {
    return !std::isfinite(t.dRx) || !std::isfinite(t.dRy) || !std::isfinite(t.dRz);
}

std::string AnglesBeyondLimit(const PairResult& pair, const Limits& limits) {
    std::vector<std::string> a;
    for (const Quantity& t : QuantitiesOf(limits.HoldsForRaw() ? pair.oRaw : pair.oRescaled))
        if (limits.IsBeyond(*t.oValue))
            a.push_back(t.strLabel + " " + Shown(t));
    return Listed(a) + " degrees " + (limits.HoldsForRaw() ? "raw" : "rescaled");
}

Verdict NotMeasured(const StatusWords& tStatus, const std::string& strPlace) {
    return {DescribeVerdict(VerdictKind::kNotMeasured),
            "NOT MEASURED: " + strPlace + (strPlace.empty() ? "" : ", ") +
                DescribeStage(tStatus.tStage).szName + ": " + tStatus.szFound + ".",
            tStatus};
}

// The library lets an angle without value pass as one within range.
constexpr StatusWords kNoAngle = {ORVEX_OK, "ORVEX_OK", Stage::kAngles,
                                  "an angle has no value, because a side of the frame has no length",
                                  "Bring the whole frame into view and check sharpness and light"};

// In place of the library's words, which take the angles as they are.
constexpr StatusWords kDoubtedRange = {
    ORVEX_ANGLE_OUT_OF_RANGE, "ORVEX_ANGLE_OUT_OF_RANGE", Stage::kAngleRange,
    "both cameras were measured, but an angle is out of range",
    "Do what the reasons ask for, and measure again before you judge the module"};

} // namespace

std::string AllowedRange(double dLimit) {
    const int nDecimals = std::round(dLimit * 10) == dLimit * 10 ? 1 : 4;
    return Fixed(-dLimit, nDecimals) + " to " + Fixed(dLimit, nDecimals);
}

std::string PlaceOfFailure(const PairResult& pair) {
    if (!pair.oFailedCamera)
        return "";
    const std::string strCamera = NameOf(*pair.oFailedCamera) + std::string(" camera");
    return pair.oFailedCorner ? strCamera + ", " + kCorners[*pair.oFailedCorner].szLabel + " corner"
                              : strCamera;
}

bool IsMeasured(const PairResult& pair) {
    return pair.oRaw && !LacksAnAngle(*pair.oRaw);
}

Verdict VerdictOf(const PairResult& pair, const Limits& limits, std::size_t nDoubts) {
    const StatusWords& tStatus = DescribeStatus(pair.nStatus);
    if (!pair.oRaw)
        return NotMeasured(tStatus, PlaceOfFailure(pair));
    if (LacksAnAngle(*pair.oRaw))
        return NotMeasured(kNoAngle, "");
    const std::string strAgainst =
        nDoubts == 1 ? "one reason speaks" : fmt::format("{} reasons speak", nDoubts);
    if (pair.nStatus == ORVEX_ANGLE_OUT_OF_RANGE)
        return {DescribeVerdict(VerdictKind::kOutOfRange),
                fmt::format(
                    "OUT OF RANGE: {}, allowed are {}.{}", AnglesBeyondLimit(pair, limits),
                    AllowedRange(limits.dRescaled),
                    nDoubts == 0 ? "" : " But " + strAgainst + " against it: do not judge the module yet."),
                nDoubts == 0 ? tStatus : kDoubtedRange};
    if (nDoubts != 0)
        return {DescribeVerdict(VerdictKind::kDoubtful),
                "DOUBTFUL: within range, but " + strAgainst + " against it. Do not rely on these angles.",
                tStatus};
    return {DescribeVerdict(VerdictKind::kWithinRange),
            "WITHIN RANGE: all three rescaled angles lie within " + AllowedRange(limits.dRescaled) +
                " degrees.",
            tStatus};
}

} // namespace tools

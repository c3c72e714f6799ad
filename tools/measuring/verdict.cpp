#include "measuring/verdict.h"

#include "Orvex_Alignment.h"
#include "basics/text_table.h"
#include "measuring/quantities.h"

#include <cmath>

namespace tools {
namespace {

bool LacksAnAngle(const Angles& t) {
    return !std::isfinite(t.dRx) || !std::isfinite(t.dRy) || !std::isfinite(t.dRz);
}

std::string AnglesBeyondLimit(const Angles& tAngles) {
    std::vector<std::string> a;
    for (const Quantity& t : QuantitiesOf(tAngles))
        if (std::fabs(*t.oValue) > kRescaledLimit)
            a.push_back(t.strLabel + " " + Shown(t));
    return Listed(a);
}

Verdict NotMeasured(const StatusWords& tWords, const std::string& strPlace) {
    return {kNotMeasured, "not_measured",
            "NOT MEASURED: " + strPlace + (strPlace.empty() ? "" : ", ") + WordsOf(tWords.tStage).szName +
                ": " + tWords.szFound + ".",
            tWords};
}

// The library lets an angle without value pass as one within range.
constexpr StatusWords tNoAngle = {ORVEX_OK, "ORVEX_OK", Stage::kAngles,
                                  "an angle has no value, because a side of the frame has no length",
                                  "Bring the whole frame into view and check sharpness and light"};

} // namespace

std::string AllowedRange(double dLimit) {
    return Fixed(-dLimit, 1) + " to " + Fixed(dLimit, 1);
}

std::string PlaceOfFailure(const Measurement& t) {
    if (!t.oFailedCamera)
        return "";
    const std::string strCamera = NameOf(*t.oFailedCamera) + std::string(" camera");
    const CornerName* const pCorner =
        MissingCorner(*t.oFailedCamera == Camera::kMaster ? t.tMaster : t.tSlave);
    const bool bAtCorner = WordsOf(t.nStatus).tStage == Stage::kCorners && pCorner != nullptr;
    return bAtCorner ? strCamera + ", " + pCorner->szLabel + " corner" : strCamera;
}

Verdict VerdictOf(const Measurement& t) {
    const StatusWords& tWords = WordsOf(t.nStatus);
    if (!t.oRaw)
        return NotMeasured(tWords, PlaceOfFailure(t));
    if (LacksAnAngle(*t.oRaw))
        return NotMeasured(tNoAngle, "");
    if (t.nStatus == ORVEX_ANGLE_OUT_OF_RANGE)
        return {kOutOfRange, "out_of_range",
                "OUT OF RANGE: " + AnglesBeyondLimit(*t.oRescaled) + " degrees rescaled, allowed are " +
                    AllowedRange(kRescaledLimit) + ".",
                tWords};
    return {kWithinRange, "within_range",
            "WITHIN RANGE: all three rescaled angles lie within " + AllowedRange(kRescaledLimit) +
                " degrees.",
            tWords};
}

} // namespace tools

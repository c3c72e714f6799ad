#include "trust/numbers.h"

#include "basics/text_table.h"
#include "reading/words.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace tools {
namespace {

using Value = std::optional<double>;

template <Value SideReading::*pMember>
Value OfSide(const CameraTrust& trust, std::size_t nSide) {
    return trust.aoSides[nSide] ? (*trust.aoSides[nSide]).*pMember : std::nullopt;
}

Value ReadShare(const CameraTrust& trust, std::size_t nSide) {
    const std::optional<SideReading>& o = trust.aoSides[nSide];
    return o && o->nLines > 0 ? Value(100.0 * o->nRead / o->nLines) : std::nullopt;
}

Value SideContrast(const CameraTrust& trust, std::size_t nSide) {
    const std::optional<SideReading>& o = trust.aoSides[nSide];
    return o && o->oDark ? Value(*o->oBright - *o->oDark) : std::nullopt;
}

Value CornerDistance(const CameraTrust& trust, std::size_t nSide) {
    return trust.aoCornersOff[nSide] ? Value(trust.aoCornersOff[nSide]->dDistance) : std::nullopt;
}

Value Border(const CameraTrust& trust, std::size_t) {
    return trust.oBorderDistance;
}

// One warning of the border is enough.
Value TouchedBorder(const CameraTrust& trust, std::size_t) {
    return trust.oBorderDistance <= 0.0 ? trust.oBorderDistance : std::nullopt;
}

Value NearBorder(const CameraTrust& trust, std::size_t) {
    return trust.oBorderDistance > 0.0 ? trust.oBorderDistance : std::nullopt;
}

template <double CrossLevels::*pMember>
Value OfCross(const CameraTrust& trust, std::size_t) {
    return trust.oCross ? Value((*trust.oCross).*pMember) : std::nullopt;
}

Value CrossContrast(const CameraTrust& trust, std::size_t) {
    return trust.oCross ? Value(trust.oCross->dBright - trust.oCross->dDark) : std::nullopt;
}

Value Noise(const CameraTrust& trust, std::size_t) {
    return trust.oNoise;
}

// One warning of the noise is enough.
Value SpoilingNoise(const CameraTrust& trust, std::size_t) {
    return trust.oNoise > kSpoilingNoise ? trust.oNoise : std::nullopt;
}

Value BearableNoise(const CameraTrust& trust, std::size_t) {
    return trust.oNoise <= kSpoilingNoise ? trust.oNoise : std::nullopt;
}

template <double Soundness::*pMember>
Value OfReading(const CameraTrust& trust, std::size_t) {
    return trust.oSoundness ? Value((*trust.oSoundness).*pMember) : std::nullopt;
}

template <double CameraTrust::Frame::*pMember>
Value OfFrame(const CameraTrust& trust, std::size_t) {
    return trust.oFrame ? Value((*trust.oFrame).*pMember) : std::nullopt;
}

template <Value Margins::*pMember>
Value OfMargins(const CameraTrust& trust, std::size_t) {
    return trust.tMargins.*pMember;
}

template <std::size_t Soundness::*pMember>
std::string WhereLine(const Soundness& t) {
    return NameOfLine(t.*pMember);
}

Value CrossThreshold(const CameraTrust& trust, std::size_t) {
    return trust.oCrossThreshold;
}

// By how much the cross is paler than its search takes for ink. Of a cross whose contrast is not the reason.
Value CrossPaleness(const CameraTrust& trust, std::size_t nSide) {
    const Value oContrast = CrossContrast(trust, nSide);
    return oContrast >= LimitFor(*LimitOf("cross_contrast_grey"), trust) && trust.oCrossThreshold
               ? Value(trust.oCross->dDark - *trust.oCrossThreshold)
               : std::nullopt;
}

Value CrossSpan(const CameraTrust& trust, std::size_t) {
    return trust.oCrossSpan;
}

constexpr char kNoiseText[] = ": noise of {value} grey levels, more than {limit}. Give the picture more "
                              "light or a longer exposure at a lower gain.";

// What can only be the cause of a failure.
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

const TrustNumber kNumbers[] = {
    {Of::kSide, "side_residual_px", "residual of the fitted line (RMS)", "px", 3,
     OfSide<&SideReading::oResidual>,
     TrustLimit{"large_residual", Warned::kAbove, kLargeResidual, 3, "side_residual_px",
                "a residual above {limit} px",
                "large residual, {value} px RMS from the fitted line, more than {limit} px. Check that the "
                "chart is flat and sharp and that nothing touches its frame."}},
    {Of::kSide, "side_corner_distance_px", "measured corner to the fitted line", "px", 3, CornerDistance,
     TrustLimit{"corner_off_line", Warned::kAbove, kLargeCornerDistance, 4, "side_corner_distance_px",
                "a corner more than {limit} px from the line",
                "its {corner} corner lies {value} px beside the fitted line, more than {limit} px. Check "
                "that corner in the report for dirt, shadow or a bent chart."}},
    {Of::kSide, "side_lines_read_percent", "lines read", "%", 1, ReadShare,
     TrustLimit{
         "few_lines", Warned::kBelow, kLeastRead, 1, "side_lines_read_percent",
         "less than {limit} % of the lines read",
         "only {read} of {lines} lines across where it was looked for show the frame, less than {limit} %. "
         "Check that the picture is unscaled with the whole frame in view, the chart at its distance and not "
         "rolled by more than 3 degrees, the light even and the frame uncovered."}},
    {Of::kSide, "side_contrast_grey", "from dark to bright", "grey levels", 1, SideContrast,
     TrustLimit{"low_contrast", Warned::kBelow, kLowestContrast, 2, "side_contrast_grey",
                "dark and bright less than {limit} grey levels apart",
                "low contrast, dark {dark} and bright {bright} differ by less than {limit} grey levels. "
                "Check light and exposure.",
                kLowContrast}},
    {Of::kSide, "side_dark_grey", "dark level", "grey levels", 1, OfSide<&SideReading::oDark>},
    {Of::kSide, "side_bright_grey", "bright level", "grey levels", 1, OfSide<&SideReading::oBright>},
    {Of::kPicture, "border_distance_px", "frame to picture's border", "px", 1, Border},
    {Of::kPicture, nullptr, nullptr, nullptr, 0, TouchedBorder,
     TrustLimit{"frame_touches_border", Warned::kAtMost, 0, 5, nullptr, nullptr,
                ": the frame touches the picture's border. Aim at the chart's middle or move it away."}},
    {Of::kPicture, nullptr, nullptr, nullptr, 1, NearBorder,
     TrustLimit{"frame_near_border", Warned::kBelow, kNearBorder, 5, "border_distance_px",
                "the frame less than {limit} px from the picture's border",
                ": the frame is only {value} px from the picture's border, less than {limit} px. Aim at the "
                "chart's middle or move it away."}},
    {Of::kPicture, "cross_contrast_grey", "cross, from dark to bright", "grey levels", 1, CrossContrast,
     TrustLimit{"low_cross_contrast", Warned::kBelow, kLowestContrast, 6, "cross_contrast_grey", nullptr,
                ", cross: low contrast, dark {dark} and bright {bright} differ by less than {limit} grey "
                "levels. Check light and exposure, and that the cross is in view.",
                kLowContrast}},
    {Of::kPicture, nullptr, nullptr, nullptr, 0, CrossPaleness,
     TrustLimit{"pale_cross", Warned::kAbove, 0, 6, nullptr, nullptr,
                ", cross: too pale, its dark level {dark} is above {threshold}, up to which its search takes "
                "pixels as ink. Check for reflections and overexposure."}},
    {Of::kPicture, "noise_grey", "noise of the paper", "grey levels", 2, Noise},
    {Of::kPicture, nullptr, nullptr, nullptr, 2, SpoilingNoise,
     TrustLimit{"much_noise", Warned::kAbove, kLargeNoise, 0, "noise_grey", nullptr, kNoiseText}},
    {Of::kPicture, nullptr, nullptr, nullptr, 2, BearableNoise,
     TrustLimit{"much_noise", Warned::kAbove, kLargeNoise, 1, "noise_grey", "noise above {limit} grey levels",
                kNoiseText}},
    {Of::kPicture, "frame_width_px", "width of the frame", "px", 0, OfFrame<&CameraTrust::Frame::dWidth>,
     TrustLimit{"narrow_frame", Warned::kAtMost, 0, 0, "frame_width_px", nullptr,
                ": the chart is too small, its frame {value} px wide; it must be wider than {limit} px. Move "
                "the module nearer to the chart, or take the picture in the sensor's full size.",
                0, nullptr, [](const FrameSearch& t) { return 2.0 * t.nOffsetX; }}},
    {Of::kPicture, "frame_height_px", "height of the frame", "px", 0, OfFrame<&CameraTrust::Frame::dHeight>,
     TrustLimit{"low_frame", Warned::kAtMost, 0, 0, "frame_height_px", nullptr,
                ": the chart is too small, its frame {value} px high; it must be higher than {limit} px. "
                "Move the module nearer to the chart, or take the picture in the sensor's full size.",
                0, nullptr, [](const FrameSearch& t) { return 2.0 * t.nOffsetY; }}},
    {Of::kPicture, "roll_shift_px", "ends of the long sides, moved by the roll", "px", 0,
     OfFrame<&CameraTrust::Frame::dRollShift>,
     TrustLimit{"rolled_chart", Warned::kAbove, kNoLimit, 0, "roll_shift_px", nullptr,
                ": the chart is rolled too far, which moves the ends of its frame's long sides by {value} "
                "px, more than {limit} px. Turn the module or the chart until the cross's bar lies level.",
                0, nullptr,
                [](const FrameSearch& t) { return std::max(t.nMargin - kMarginBesideRoll, 1.0); }}},
    {Of::kPicture, "frame_start_margin_px", "start of the frame's search to the frame", "px", 0,
     OfMargins<&Margins::oFrameStart>},
    {Of::kPicture, "window_margin_px", "ends of the cross's bars to its search window", "px", 0,
     OfMargins<&Margins::oWindow>},
    {Of::kPicture, "roll_margin_px", "margin around the frame less its roll", "px", 0,
     OfMargins<&Margins::oRoll>},
    {Of::kPicture, "used_lines_percent", "length of the chart's lines that can be read, worst", "%", 1,
     OfReading<&Soundness::dLeastUsed>,
     TrustLimit{
         "covered_line", Warned::kBelow, kLeastUsed, 4, "used_lines_percent",
         "less than {limit} % of the lines across that show a half side straight",
         ": {where} can be read on {value} % of its length only, less than {limit} %. Look for what covers "
         "it: the report shows what was left out.",
         kLeastUsed, WhereLine<&Soundness::nCovered>}},
    {Of::kPicture, "half_side_gap_px", "gap between the halves of a side", "px", 3,
     OfReading<&Soundness::dLargestGap>,
     TrustLimit{"broken_side", Warned::kAbove, kLargeGap, 4, "half_side_gap_px",
                "the halves of a side more than {limit} px apart",
                ": the two halves of {where} do not line up, by {value} px, more than {limit} px. Check that "
                "the chart is flat and that nothing lies on its frame.",
                kLargeGap, [](const Soundness& t) { return NameOfSide(t.nBroken); }}},
    {Of::kPicture, "width_spread_percent", "spread of the frame line's width", "%", 2,
     OfReading<&Soundness::dWidthSpread>,
     TrustLimit{"uneven_line", Warned::kAbove, kWidthSpread, 4, "width_spread_percent",
                "the frame line's width uneven by more than {limit} %",
                ": the frame line's width is uneven by {value} %, more than {limit} %. Check for dirt along "
                "it and for uneven light."}},
    {Of::kPicture, "light_step_percent", "step in the light, part of the contrast", "%", 1,
     OfReading<&Soundness::dLightStep>,
     TrustLimit{"light_step", Warned::kAbove, kLightStep, 4, "light_step_percent",
                "a step of the paper's light above {limit} % of the contrast",
                ": the paper's light steps by {value} % of the contrast along {where}, more than {limit} %. "
                "Look for the edge of a shadow, or for glare.",
                kLightStep, WhereLine<&Soundness::nLit>}},
    {Of::kPicture, "cross_dark_grey", "cross, dark level", "grey levels", 1, OfCross<&CrossLevels::dDark>},
    {Of::kPicture, "cross_bright_grey", "cross, bright level", "grey levels", 1,
     OfCross<&CrossLevels::dBright>},
    {Of::kPicture, "cross_threshold_grey", "cross, threshold of its search", "grey levels", 1,
     CrossThreshold},
    {Of::kPicture, "cross_span_px", "cross span", "px", 0, CrossSpan},
};

std::optional<Point> LineEnd(const CameraTrust& trust, std::size_t nSide, std::size_t nEnd) {
    const std::optional<SideReading>& o = trust.aoSides[nSide];
    return o && o->oEnds ? std::optional((*o->oEnds)[nEnd]) : std::nullopt;
}

std::string InWords(const TrustLimit& tLimit, double dLimit) {
    return std::isfinite(dLimit) ? fmt::format("{} {:g}", BoundOf(tLimit), dLimit) : "";
}

} // namespace

double LimitFor(const TrustLimit& tLimit, const CameraTrust& trust) {
    const double dOfTable = trust.bMeasured ? tLimit.dLimit : tLimit.dOfFailure;
    if (!std::isfinite(dOfTable))
        return dOfTable;
    if (tLimit.FollowsFrom != nullptr)
        return tLimit.FollowsFrom(trust.tFrameSearch);
    const auto p = trust.tLimits.find(tLimit.szJsonKey != nullptr ? tLimit.szJsonKey : "");
    return p != trust.tLimits.end() ? p->second : dOfTable;
}

const char* BoundOf(const TrustLimit& tLimit) {
    constexpr const char* kWords[] = {"at most", "at least", "more than"};
    return kWords[static_cast<std::size_t>(tLimit.tWarned)];
}

double UsualLimit(const TrustLimit& tLimit) {
    return std::isfinite(tLimit.dLimit) ? tLimit.dLimit : tLimit.dOfFailure;
}

const TrustLimit* LimitOf(std::string_view strKey) {
    for (const TrustNumber& t : kNumbers)
        if (t.oLimit && t.oLimit->szJsonKey != nullptr && t.oLimit->szJsonKey == strKey)
            return &*t.oLimit;
    return nullptr;
}

std::optional<double> Excess(const TrustNumber& tNumber, const TrustLimit& tLimit, const CameraTrust& trust,
                             std::size_t nSide) {
    const Value oValue = tNumber.ValueOf(trust, nSide);
    if (!oValue)
        return std::nullopt;
    const double dExcess = (*oValue - LimitFor(tLimit, trust)) * (tLimit.tWarned == Warned::kAbove ? 1 : -1);
    const bool bWorse = tLimit.tWarned == Warned::kAtMost ? dExcess >= 0 : dExcess > 0;
    return bWorse ? std::optional(dExcess) : std::nullopt;
}

std::span<const TrustNumber> TrustNumbers() {
    return kNumbers;
}

Quantities QuantitiesOf(const CameraTrust& trust) {
    Quantities a;
    for (const TrustNumber& t : kNumbers)
        for (std::size_t i = 0; i < (t.tOf == Of::kSide ? kSides.size() : 1) && t.szKey != nullptr; ++i) {
            const bool bSide = t.tOf == Of::kSide;
            const TrustLimit* const pLimit = LimitOf(t.szKey);
            a.push_back({bSide ? fmt::format("{}/{}", t.szKey, kSides[i].szKey) : t.szKey,
                         bSide ? fmt::format("{} side, {}", kSides[i].szKey, t.szWords) : t.szWords, t.szUnit,
                         t.nDecimals, t.ValueOf(trust, i),
                         pLimit != nullptr ? InWords(*pLimit, LimitFor(*pLimit, trust)) : "",
                         pLimit != nullptr && Excess(t, *pLimit, trust, i)});
        }
    return a;
}

Quantities LinesOf(const CameraTrust& trust) {
    constexpr std::array<const char*, 2> kEnds = {"from", "to"};
    Quantities a;
    for (std::size_t i = 0; i < kSides.size(); ++i)
        for (std::size_t nEnd = 0; nEnd < kEnds.size(); ++nEnd)
            AddPoint(a, fmt::format("side_line_px/{}/{}", kSides[i].szKey, kEnds[nEnd]),
                     fmt::format("{} side, fitted line {}", kSides[i].szKey, kEnds[nEnd]),
                     LineEnd(trust, i, nEnd));
    return a;
}

std::string TrustLimitsHelp() {
    std::vector<std::string> a;
    for (const TrustNumber& t : kNumbers)
        if (t.oLimit && t.oLimit->szHelp != nullptr)
            a.push_back(fmt::format(fmt::runtime(t.oLimit->szHelp), fmt::arg("limit", t.oLimit->dLimit)));
    return Listed(a, ", and ");
}

Json TrustLimitsJson(const CameraTrust& trust) {
    Json tJson;
    for (const TrustNumber& t : kNumbers)
        if (t.oLimit && t.oLimit->szJsonKey != nullptr && std::isfinite(LimitFor(*t.oLimit, trust)))
            tJson[t.oLimit->szJsonKey] = LimitFor(*t.oLimit, trust);
    return tJson;
}

} // namespace tools

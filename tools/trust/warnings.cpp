#include "basics/text_table.h"
#include "trust/limits.h"
#include "trust/trust.h"

namespace tools {
namespace {

std::string OfLowContrast(double dDark, double dBright) {
    return "low contrast, dark " + Fixed(dDark, 0) + " and bright " + Fixed(dBright, 0) +
           " differ by less than " + Fixed(kLowContrast, 0) + " grey levels. Check light and exposure";
}

// One side as the checks see it.
struct CheckedSide {
    SideReading tReading;
    std::optional<double> oCornerDistance;
};

// One reason to warn of sides. Excess tells by how much a side is worse than allowed.
struct SideCheck {
    double (*Excess)(const CheckedSide&);
    std::string (*Words)(const CheckedSide&);
};

constexpr std::array<SideCheck, 4> aSideChecks = {{
    {[](const CheckedSide& t) { return kLeastRead - ReadShareOf(t.tReading).value_or(kLeastRead); },
     [](const CheckedSide& t) {
         return "only " + std::to_string(t.tReading.nRead) + " of " + std::to_string(t.tReading.nLines) +
                " lines across where it was looked for show the frame, less than " + Fixed(kLeastRead, 0) +
                " %. Check that the picture is unscaled with the whole frame in view, the chart at its "
                "distance and not rolled by more than 3 degrees, the light even and the frame uncovered.";
     }},
    {[](const CheckedSide& t) {
         return t.tReading.oDark ? kLowContrast - (*t.tReading.oBright - *t.tReading.oDark) : 0;
     },
     [](const CheckedSide& t) { return OfLowContrast(*t.tReading.oDark, *t.tReading.oBright) + "."; }},
    {[](const CheckedSide& t) { return t.tReading.oResidual.value_or(0) - kLargeResidual; },
     [](const CheckedSide& t) {
         return "large residual, " + Fixed(*t.tReading.oResidual, 3) +
                " px RMS from the fitted line, more than " + Fixed(kLargeResidual, 1) +
                " px. Check that the chart is flat and sharp and that nothing touches its frame.";
     }},
    {[](const CheckedSide& t) { return t.oCornerDistance.value_or(0) - kLargeCornerDistance; },
     [](const CheckedSide& t) {
         return "a measured corner lies " + Fixed(*t.oCornerDistance, 3) +
                " px beside the fitted line, more than " + Fixed(kLargeCornerDistance, 1) +
                " px. Check the corner in the report for dirt, shadow or a bent chart.";
     }},
}};

// One warning for all sides that a check finds, with the worst one's numbers.
void WarnOfSides(const std::string& strCamera, const CameraTrust& t, const SideCheck& tCheck,
                 std::vector<std::string>& a) {
    std::vector<std::string> aSides;
    std::optional<CheckedSide> oWorst;
    for (std::size_t i = 0; i < kSides.size(); ++i) {
        if (!t.aoSides[i])
            continue;
        const CheckedSide tSide = {*t.aoSides[i], t.aoCornerDistances[i]};
        if (!(tCheck.Excess(tSide) > 0))
            continue;
        aSides.emplace_back(kSides[i].szKey);
        if (!oWorst || tCheck.Excess(tSide) > tCheck.Excess(*oWorst))
            oWorst = tSide;
    }
    if (oWorst)
        a.push_back(strCamera + ", " + Listed(aSides) +
                    (aSides.size() == 1 ? " side: " : " sides: at worst ") + tCheck.Words(*oWorst));
}

// Nothing if nothing speaks against the cross.
std::string OfCross(const CameraTrust& t) {
    if (!t.oCross)
        return "";
    const auto [dDark, dBright] = *t.oCross;
    if (dBright - dDark < kLowContrast)
        return OfLowContrast(dDark, dBright) + ", and that the cross is in view";
    if (t.oCrossThreshold && dDark > *t.oCrossThreshold)
        return "too pale, its dark level " + Fixed(dDark, 0) + " is above " + Fixed(*t.oCrossThreshold, 0) +
               ", up to which its search takes pixels as ink. Check for reflections and overexposure";
    return "";
}

std::string OfBorder(double dDistance) {
    return (dDistance <= 0 ? "touches the picture's border"
                           : "is only " + Fixed(dDistance, 1) + " px from the picture's border, less than " +
                                 Fixed(kNearBorder, 0) + " px") +
           std::string(". Aim at the chart's middle or move it away.");
}

} // namespace

std::vector<std::string> WarningsOf(Camera tCamera, const CameraTrust& t) {
    std::vector<std::string> a;
    const std::string strCamera = NameOf(tCamera) + std::string(" camera");
    for (const SideCheck& tCheck : aSideChecks)
        WarnOfSides(strCamera, t, tCheck, a);
    if (t.oBorderDistance && *t.oBorderDistance < kNearBorder)
        a.push_back(strCamera + ": the frame " + OfBorder(*t.oBorderDistance));
    if (const std::string str = OfCross(t); !str.empty())
        a.push_back(strCamera + ", cross: " + str + ".");
    return a;
}

} // namespace tools

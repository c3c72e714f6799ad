#include "trust.h"

#include "text_table.h"

#include <algorithm>

namespace tools {
namespace {

// px RMS. A corner off by this much turns a tilt by 0.07 degrees; a sharp, flat chart stays below a tenth of
// it.
constexpr double dLargeResidual = 0.5;

// Grey levels from dark to bright. Below, usual noise of 2 levels moves an edge that is 3 px wide by more
// than 0.1 px.
constexpr double dLowContrast = 40.0;

// px. The frame's levels are taken from 40 px around it; nearer than half of that to the border, most of the
// bright paper is missing, and the next module's frame may be cut off.
constexpr double dNearBorder = 20.0;

// Share of lines across a side that show the frame: one in ten missing is more than dust.
constexpr double dLeastReadShare = 0.9;

// The frame's outer edge lies half a line beyond the corners.
std::optional<double> BorderDistance(const Picture& tPicture, const CameraMeasurement& tMeasured,
                                     const CameraTrust& tTrust) {
    double dHalfLine = 0;
    for (const std::optional<SideReading>& o : tTrust.aoSides)
        if (o && o->oWidth)
            dHalfLine = std::max(dHalfLine, *o->oWidth / 2);
    std::optional<double> oLeast;
    for (const std::optional<Point>& o : tMeasured.aoCorners)
        if (o) {
            const double d = std::min({o->dX + 0.5, tPicture.nColumns - 0.5 - o->dX, o->dY + 0.5,
                                       tPicture.nRows - 0.5 - o->dY}) -
                             dHalfLine;
            oLeast = std::min(d, oLeast.value_or(d));
        }
    return oLeast;
}

Quantity OfSide(const std::string& strKind, const char* szUnitInKey, const SideName& tSide,
                const char* szWords, const char* szUnit, int nDecimals, std::optional<double> oValue) {
    return {"side_" + strKind + szUnitInKey + "/" + tSide.szKey,
            std::string(tSide.szKey) + " side, " + szWords, szUnit, nDecimals, oValue};
}

// One reason to warn of sides. Excess tells by how much a side is worse than allowed.
struct SideCheck {
    double (*Excess)(const SideReading&);
    std::string (*Words)(const SideReading&);
};

constexpr std::array<SideCheck, 3> aSideChecks = {{
    {[](const SideReading& t) { return dLeastReadShare * t.nLines - t.nRead; },
     [](const SideReading& t) {
         return "only " + std::to_string(t.nRead) + " of " + std::to_string(t.nLines) +
                " lines across it show the frame. Remove what covers it, and check light and aim.";
     }},
    {[](const SideReading& t) { return t.oDark ? dLowContrast - (*t.oBright - *t.oDark) : 0; },
     [](const SideReading& t) {
         return "low contrast, dark " + Fixed(*t.oDark, 0) + " and bright " + Fixed(*t.oBright, 0) +
                " differ by less than " + Fixed(dLowContrast, 0) + " grey levels. Check light and exposure.";
     }},
    {[](const SideReading& t) { return t.oResidual ? *t.oResidual - dLargeResidual : 0; },
     [](const SideReading& t) {
         return "large residual, " + Fixed(*t.oResidual, 3) + " px RMS from a straight line, more than " +
                Fixed(dLargeResidual, 1) +
                " px. Check that the chart is flat and sharp and that nothing touches its frame.";
     }},
}};

// One warning for all sides that a check finds, with the worst one's numbers.
void WarnOfSides(const std::string& strCamera, const CameraTrust& t, const SideCheck& tCheck,
                 std::vector<std::string>& a) {
    std::vector<std::string> aSides;
    const SideReading* pWorst = nullptr;
    for (std::size_t i = 0; i < kSides.size(); ++i)
        if (t.aoSides[i] && tCheck.Excess(*t.aoSides[i]) > 0) {
            aSides.push_back(kSides[i].szKey);
            if (pWorst == nullptr || tCheck.Excess(*t.aoSides[i]) > tCheck.Excess(*pWorst))
                pWorst = &*t.aoSides[i];
        }
    if (pWorst == nullptr)
        return;
    std::string strSides;
    for (const std::string& str : aSides)
        strSides += ", " + str;
    a.push_back(strCamera + strSides + (aSides.size() == 1 ? " side: " : " sides: at worst ") +
                tCheck.Words(*pWorst));
}

} // namespace

CameraTrust TrustOf(const Picture& tPicture, const CameraMeasurement& tMeasured) {
    CameraTrust t;
    for (std::size_t i = 0; i < kSides.size(); ++i) {
        const std::optional<Point>&oFrom = tMeasured.aoCorners[kSides[i].nFrom],
              &oTo = tMeasured.aoCorners[kSides[i].nTo];
        if (oFrom && oTo)
            t.aoSides[i] = ReadSide(tPicture, *oFrom, *oTo);
    }
    t.oBorderDistance = BorderDistance(tPicture, tMeasured, t);
    t.oCrossSpan = tMeasured.oBarSpan;
    return t;
}

Quantities QuantitiesOf(const CameraTrust& t) {
    const auto OfSides = [&](const char* szKind, const char* szUnitInKey, const char* szWords,
                             const char* szUnit, int nDecimals, std::optional<double> SideReading::*pValue) {
        Quantities a;
        for (std::size_t i = 0; i < kSides.size(); ++i)
            a.push_back(OfSide(szKind, szUnitInKey, kSides[i], szWords, szUnit, nDecimals,
                               t.aoSides[i] ? (*t.aoSides[i]).*pValue : std::nullopt));
        return a;
    };
    Quantities a;
    for (const Quantities& aAdded :
         {OfSides("residual", "_px", "residual (RMS)", "px", 3, &SideReading::oResidual),
          OfSides("dark", "_grey", "dark level", "grey levels", 1, &SideReading::oDark),
          OfSides("bright", "_grey", "bright level", "grey levels", 1, &SideReading::oBright)})
        a.insert(a.end(), aAdded.begin(), aAdded.end());
    a.push_back({"border_distance_px", "frame to picture's border", "px", 1, t.oBorderDistance});
    a.push_back({"cross_span_px", "cross span", "px", 0, t.oCrossSpan});
    return a;
}

std::vector<std::string> WarningsOf(Camera tCamera, const CameraTrust& t) {
    std::vector<std::string> a;
    const std::string strCamera = NameOf(tCamera) + std::string(" camera");
    for (const SideCheck& tCheck : aSideChecks)
        WarnOfSides(strCamera, t, tCheck, a);
    if (t.oBorderDistance && *t.oBorderDistance < dNearBorder)
        a.push_back(strCamera + ": the frame " +
                    (*t.oBorderDistance <= 0
                         ? "touches the picture's border"
                         : "is only " + Fixed(*t.oBorderDistance, 1) +
                               " px from the picture's border, less than " + Fixed(dNearBorder, 0) + " px") +
                    ". Aim at the chart's middle or move it away.");
    return a;
}

} // namespace tools

#include "trust/warnings.h"

#include "basics/text_table.h"
#include "trust/numbers.h"
#include "trust/pair_warnings.h"

#include <algorithm>
#include <fmt/format.h>

namespace tools {
namespace {

// What a warning may tell beside its limit; what does not apply stands in no such text.
struct Told {
    std::string strValue, strRead, strLines, strDark, strBright, strThreshold, strCorner, strWhere;
};

std::string Filled(const TrustLimit& tLimit, const std::string& strLimit, const Told& t) {
    return fmt::format(fmt::runtime(tLimit.szWarning), fmt::arg("limit", strLimit),
                       fmt::arg("value", t.strValue), fmt::arg("read", t.strRead),
                       fmt::arg("lines", t.strLines), fmt::arg("dark", t.strDark),
                       fmt::arg("bright", t.strBright), fmt::arg("threshold", t.strThreshold),
                       fmt::arg("corner", t.strCorner), fmt::arg("where", t.strWhere));
}

std::string Whole(std::optional<double> o) {
    return Fixed(o.value_or(0), 0);
}

Told ToldOfSide(const std::string& strValue, const CameraTrust& trust, std::size_t nSide) {
    const SideReading& tSide = *trust.aoSides[nSide];
    const auto& oCorner = trust.aoCornersOff[nSide];
    return {strValue,
            Whole(tSide.nRead),
            Whole(tSide.nLines),
            Whole(tSide.oDark),
            Whole(tSide.oBright),
            "",
            oCorner ? kCorners[oCorner->nCorner].szLabel : "",
            ""};
}

Told ToldOfPicture(const std::string& strValue, const CameraTrust& trust, const TrustLimit& tLimit) {
    const CrossLevels tCross = trust.oCross.value_or(CrossLevels{});
    return {strValue,
            "",
            "",
            Whole(tCross.dDark),
            Whole(tCross.dBright),
            Whole(trust.oCrossThreshold),
            "",
            tLimit.WhereOf != nullptr && trust.oSoundness ? tLimit.WhereOf(*trust.oSoundness) : ""};
}

// One warning of all sides that exceed the limit, with the worst one's numbers; or of the picture.
std::optional<Warning> WarningOf(Camera tCamera, const TrustNumber& tNumber, const CameraTrust& trust) {
    const bool bSides = tNumber.tOf == Of::kSide;
    const TrustLimit& tLimit = *tNumber.oLimit;
    const double dLimit = LimitFor(tLimit, trust);
    const std::string strLimit = fmt::format("{}", dLimit);
    std::vector<const char*> aSides;
    std::size_t nWorst = 0;
    double dWorst = 0;
    for (std::size_t i = 0; i < (bSides ? kSides.size() : 1); ++i)
        if (const std::optional<double> oExcess = Excess(tNumber, tLimit, trust, i)) {
            if (aSides.empty() || *oExcess > dWorst) {
                nWorst = i;
                dWorst = *oExcess;
            }
            aSides.push_back(kSides[i].szKey);
        }
    if (aSides.empty())
        return std::nullopt;
    const double dValue = *tNumber.ValueOf(trust, nWorst);
    const std::string strValue = Fixed(dValue, tNumber.nDecimals);
    const std::string strText =
        bSides ? fmt::format(" camera, {} {}{}", fmt::join(aSides, ", "),
                             aSides.size() == 1 ? "side: " : "sides: at worst ",
                             Filled(tLimit, strLimit, ToldOfSide(strValue, trust, nWorst)))
               : " camera" + Filled(tLimit, strLimit, ToldOfPicture(strValue, trust, tLimit));
    return Warning{.szKind = tLimit.szKind,
                   .oCamera = tCamera,
                   .aSides = bSides ? aSides : std::vector<const char*>(),
                   .oValue = dValue,
                   .oLimit = dLimit,
                   .strText = NameOf(tCamera) + strText,
                   .nRank = tLimit.nRank};
}

} // namespace

std::vector<Warning> WarningsOf(Camera tCamera, const CameraTrust& trust) {
    std::vector<Warning> a;
    for (const TrustNumber& tNumber : TrustNumbers())
        if (tNumber.oLimit)
            if (std::optional<Warning> o = WarningOf(tCamera, tNumber, trust))
                a.push_back(std::move(*o));
    std::ranges::stable_sort(a, {}, &Warning::nRank);
    return a;
}

Json JsonOf(const Warning& warning) {
    return {{"kind", warning.szKind},
            {"camera", warning.oCamera ? Json(NameOf(*warning.oCamera)) : Json()},
            {"sides", warning.aSides},
            {"axis", warning.szAxis != nullptr ? Json(warning.szAxis) : Json()},
            {"value", warning.oValue ? Json(*warning.oValue) : Json()},
            {"limit", warning.oLimit ? Json(*warning.oLimit) : Json()},
            {"doubt", warning.bDoubt}};
}

std::string KeyOf(const Json& tWarning) {
    const Json& tCamera = tWarning.at("camera");
    return (tCamera.is_null() ? "" : tCamera.get<std::string>() + ":") +
           tWarning.at("kind").get<std::string>();
}

std::optional<std::string> GeneralText(const std::string& strKey, const Limits& limits) {
    CameraTrust tAny; // of a measured picture
    tAny.bMeasured = true;
    tAny.tLimits = limits.tTrust;
    const auto LimitText = [&](const TrustLimit& t) {
        return t.FollowsFrom != nullptr ? "N" : fmt::format("{}", LimitFor(t, tAny));
    };
    for (const TrustNumber& t : TrustNumbers())
        for (const Camera tCamera : {Camera::kMaster, Camera::kSlave})
            if (t.oLimit && strKey == fmt::format("{}:{}", NameOf(tCamera), t.oLimit->szKind))
                return fmt::format("{} camera{}{}", NameOf(tCamera), t.tOf == Of::kSide ? ": " : "",
                                   Filled(*t.oLimit, LimitText(*t.oLimit),
                                          {"N", "N", "N", "N", "N", "N", "measured", "one of its lines"}));
    const std::size_t nColon = strKey.find(':');
    std::optional<std::string> o = GeneralPairText(strKey.substr(nColon + 1));
    return o && nColon != strKey.npos ? strKey.substr(0, nColon) + " camera: " + *o : o;
}

} // namespace tools

#include "trust/warnings.h"

#include "basics/text_table.h"
#include "trust/numbers.h"

#include <fmt/format.h>

namespace tools {
namespace {

constexpr char kSizeKind[] = "different_sizes";
constexpr char kSizeText[] =
    "the pictures differ in size: master {} x {} px, slave {} x {} px. The angles allow for it; the record's "
    "shift mixes pixels of both. Check that each picture is as its camera took it.";

// What a warning may tell beside its limit; what does not apply stands in no such text.
struct Told {
    std::string strValue, strRead, strLines, strDark, strBright, strThreshold;
};

std::string Filled(const TrustLimit& tLimit, const Told& t) {
    return fmt::format(fmt::runtime(tLimit.szWarning), fmt::arg("limit", tLimit.dLimit),
                       fmt::arg("value", t.strValue), fmt::arg("read", t.strRead),
                       fmt::arg("lines", t.strLines), fmt::arg("dark", t.strDark),
                       fmt::arg("bright", t.strBright), fmt::arg("threshold", t.strThreshold));
}

std::string Whole(std::optional<double> o) {
    return Fixed(o.value_or(0), 0);
}

Told ToldOfSide(const std::string& strValue, const SideReading& tSide) {
    return {strValue, Whole(tSide.nRead), Whole(tSide.nLines), Whole(tSide.oDark), Whole(tSide.oBright), ""};
}

Told ToldOfPicture(const std::string& strValue, const CameraTrust& trust) {
    const CrossLevels tCross = trust.oCross.value_or(CrossLevels{});
    return {strValue, "", "", Whole(tCross.dDark), Whole(tCross.dBright), Whole(trust.oCrossThreshold)};
}

// By how much the number is worse than allowed; nothing if it is not.
std::optional<double> Excess(const TrustLimit& tLimit, std::optional<double> oValue) {
    if (!oValue)
        return std::nullopt;
    const double dExcess =
        tLimit.tWarned == Warned::kAbove ? *oValue - tLimit.dLimit : tLimit.dLimit - *oValue;
    const bool bWorse = tLimit.tWarned == Warned::kAtMost ? dExcess >= 0 : dExcess > 0;
    return bWorse ? std::optional(dExcess) : std::nullopt;
}

// One warning of all sides that exceed the limit, with the worst one's numbers; or of the picture.
std::optional<Warning> WarningOf(Camera tCamera, const TrustNumber& tNumber, const CameraTrust& trust) {
    const bool bSides = tNumber.tOf == Of::kSide;
    const TrustLimit& tLimit = *tNumber.oLimit;
    std::vector<const char*> aSides;
    std::size_t nWorst = 0;
    double dWorst = 0;
    for (std::size_t i = 0; i < (bSides ? kSides.size() : 1); ++i)
        if (const std::optional<double> oExcess = Excess(tLimit, tNumber.ValueOf(trust, i))) {
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
    if (!bSides)
        return Warning{
            tLimit.szKind,
            tCamera,
            {},
            dValue,
            tLimit.dLimit,
            fmt::format("{} camera{}", NameOf(tCamera), Filled(tLimit, ToldOfPicture(strValue, trust)))};
    return Warning{tLimit.szKind,
                   tCamera,
                   aSides,
                   dValue,
                   tLimit.dLimit,
                   fmt::format("{} camera, {} {}{}", NameOf(tCamera), fmt::join(aSides, ", "),
                               aSides.size() == 1 ? "side: " : "sides: at worst ",
                               Filled(tLimit, ToldOfSide(strValue, *trust.aoSides[nWorst])))};
}

} // namespace

std::vector<Warning> WarningsOf(Camera tCamera, const CameraTrust& trust) {
    std::vector<Warning> a;
    for (int nRank = 1; nRank <= kLastRank; ++nRank)
        for (const TrustNumber& tNumber : TrustNumbers())
            if (tNumber.oLimit && tNumber.oLimit->nRank == nRank)
                if (std::optional<Warning> o = WarningOf(tCamera, tNumber, trust))
                    a.push_back(std::move(*o));
    return a;
}

Warning SizeWarning(PictureSize tMaster, PictureSize tSlave) {
    return {
        kSizeKind, {},
        {},        {},
        {},        fmt::format(kSizeText, tMaster.nColumns, tMaster.nRows, tSlave.nColumns, tSlave.nRows)};
}

Json JsonOf(const Warning& warning) {
    return {{"kind", warning.szKind},
            {"camera", warning.oCamera ? Json(NameOf(*warning.oCamera)) : Json()},
            {"sides", warning.aSides},
            {"value", warning.oValue ? Json(*warning.oValue) : Json()},
            {"limit", warning.oLimit ? Json(*warning.oLimit) : Json()}};
}

std::string KeyOf(const Json& tWarning) {
    const Json& tCamera = tWarning.at("camera");
    return (tCamera.is_null() ? "" : tCamera.get<std::string>() + ":") +
           tWarning.at("kind").get<std::string>();
}

std::optional<std::string> GeneralText(const std::string& strKey) {
    if (strKey == kSizeKind)
        return fmt::format(fmt::runtime(kSizeText), "N", "N", "N", "N");
    for (const TrustNumber& t : TrustNumbers())
        for (const Camera tCamera : {Camera::kMaster, Camera::kSlave})
            if (t.oLimit && strKey == fmt::format("{}:{}", NameOf(tCamera), t.oLimit->szKind))
                return fmt::format("{} camera{}{}", NameOf(tCamera), t.tOf == Of::kSide ? ": " : "",
                                   Filled(*t.oLimit, {"N", "N", "N", "N", "N", "N"}));
    return std::nullopt;
}

} // namespace tools

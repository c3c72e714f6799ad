#include "trust/warnings.h"

#include "basics/text_table.h"
#include "trust/numbers.h"

#include <algorithm>
#include <fmt/args.h>
#include <fmt/format.h>

namespace tools {
namespace {

constexpr char kSizeKind[] = "different_sizes";
constexpr char kSizeText[] =
    "the pictures differ in size: master {} x {} px, slave {} x {} px. The angles allow for it; the record's "
    "shift mixes pixels of both. Check that each picture is as its camera took it.";

// A warning's text with each of its measured numbers as Told gives it.
template <typename Told>
std::string Filled(const TrustLimit& tLimit, const Told& TextOf) {
    fmt::dynamic_format_arg_store<fmt::format_context> tNumbers;
    for (const char* const szName : {"value", "read", "lines", "dark", "bright", "threshold"})
        tNumbers.push_back(fmt::arg(szName, TextOf(std::string_view(szName))));
    tNumbers.push_back(fmt::arg("limit", tLimit.dLimit));
    return fmt::vformat(tLimit.szWarning, tNumbers);
}

std::string Whole(std::optional<double> o) {
    return Fixed(o.value_or(0), 0);
}

// What a warning may tell of a side.
std::string OfSide(std::string_view strName, const SideReading& tSide) {
    return Whole(strName == "read"     ? tSide.nRead
                 : strName == "lines"  ? tSide.nLines
                 : strName == "dark"   ? tSide.oDark
                 : strName == "bright" ? tSide.oBright
                                       : std::nullopt);
}

// What a warning may tell of the cross.
std::string OfCross(std::string_view strName, const CameraTrust& trust) {
    if (strName == "threshold")
        return Whole(trust.oCrossThreshold);
    return trust.oCross ? Whole(strName == "dark" ? trust.oCross->dDark : trust.oCross->dBright) : "";
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

// One warning of all sides that exceed the limit, with the worst one's numbers. Where bSides is false the
// number is the camera's.
std::optional<Warning> WarningOf(Camera tCamera, const TrustNumber& tNumber, const CameraTrust& trust,
                                 bool bSides) {
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
    const std::string strWords = Filled(tLimit, [&](std::string_view strName) {
        return strName == "value" ? Fixed(dValue, tNumber.nDecimals)
               : bSides           ? OfSide(strName, *trust.aoSides[nWorst])
                                  : OfCross(strName, trust);
    });
    if (!bSides)
        return Warning{tLimit.szKind, tCamera,       {},
                       dValue,        tLimit.dLimit, fmt::format("{} camera{}", NameOf(tCamera), strWords)};
    return Warning{tLimit.szKind,
                   tCamera,
                   aSides,
                   dValue,
                   tLimit.dLimit,
                   fmt::format("{} camera, {} {}{}", NameOf(tCamera), fmt::join(aSides, ", "),
                               aSides.size() == 1 ? "side: " : "sides: at worst ", strWords)};
}

} // namespace

std::vector<Warning> WarningsOf(Camera tCamera, const CameraTrust& trust) {
    std::vector<Warning> a;
    for (int nRank = 1; nRank <= kLastRank; ++nRank)
        for (const bool bSides : {true, false})
            for (const TrustNumber& tNumber : bSides ? SideNumbers() : CameraNumbers())
                if (tNumber.oLimit && tNumber.oLimit->nRank == nRank)
                    if (std::optional<Warning> o = WarningOf(tCamera, tNumber, trust, bSides))
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
    const auto AnyNumber = [](std::string_view) { return std::string("N"); };
    for (const bool bSides : {true, false})
        for (const TrustNumber& tNumber : bSides ? SideNumbers() : CameraNumbers())
            for (const Camera tCamera : {Camera::kMaster, Camera::kSlave})
                if (tNumber.oLimit && strKey == fmt::format("{}:{}", NameOf(tCamera), tNumber.oLimit->szKind))
                    return fmt::format("{} camera{}{}", NameOf(tCamera), bSides ? ": " : "",
                                       Filled(*tNumber.oLimit, AnyNumber));
    return std::nullopt;
}

} // namespace tools

#include "trust/trust.h"

namespace tools {
namespace {

using Value = std::optional<double>;

// What is told of each side alike.
struct SideKind {
    const char* szKey; // ends in the unit
    const char* szWords;
    const char* szUnit;
    int nDecimals;
    Value (*ValueOf)(const CameraTrust&, std::size_t nSide);
};

template <Value SideReading::*pMember>
Value Member(const CameraTrust& t, std::size_t nSide) {
    return t.aoSides[nSide] ? (*t.aoSides[nSide]).*pMember : std::nullopt;
}

Value ReadShare(const CameraTrust& t, std::size_t nSide) {
    return t.aoSides[nSide] ? ReadShareOf(*t.aoSides[nSide]) : std::nullopt;
}

Value CornerDistance(const CameraTrust& t, std::size_t nSide) {
    return t.aoCornerDistances[nSide];
}

std::optional<Point> LineEnd(const CameraTrust& t, std::size_t nSide, std::size_t nEnd) {
    const std::optional<SideReading>& o = t.aoSides[nSide];
    return o && o->oEnds ? std::optional((*o->oEnds)[nEnd]) : std::nullopt;
}

constexpr std::array<SideKind, 5> aSideKinds = {{
    {"side_residual_px", "residual of the fitted line (RMS)", "px", 3, Member<&SideReading::oResidual>},
    {"side_corner_distance_px", "measured corner to the fitted line", "px", 3, CornerDistance},
    {"side_lines_read_percent", "lines read", "%", 1, ReadShare},
    {"side_dark_grey", "dark level", "grey levels", 1, Member<&SideReading::oDark>},
    {"side_bright_grey", "bright level", "grey levels", 1, Member<&SideReading::oBright>},
}};

} // namespace

Quantities QuantitiesOf(const CameraTrust& t) {
    Quantities a;
    for (const SideKind& tKind : aSideKinds)
        for (std::size_t i = 0; i < kSides.size(); ++i)
            a.push_back({std::string(tKind.szKey) + "/" + kSides[i].szKey,
                         std::string(kSides[i].szKey) + " side, " + tKind.szWords, tKind.szUnit,
                         tKind.nDecimals, tKind.ValueOf(t, i)});
    a.push_back({"border_distance_px", "frame to picture's border", "px", 1, t.oBorderDistance});
    const auto OfCross = [&](const char* szKey, const char* szWords, Value oValue) {
        a.push_back({szKey, std::string("cross, ") + szWords, "grey levels", 1, oValue});
    };
    OfCross("cross_dark_grey", "dark level", t.oCross ? Value(t.oCross->dDark) : Value());
    OfCross("cross_bright_grey", "bright level", t.oCross ? Value(t.oCross->dBright) : Value());
    OfCross("cross_threshold_grey", "threshold of its search", t.oCrossThreshold);
    a.push_back({"cross_span_px", "cross span", "px", 0, t.oCrossSpan});
    return a;
}

Quantities LinesOf(const CameraTrust& t) {
    constexpr std::array<const char*, 2> aszEnds = {"from", "to"};
    Quantities a;
    for (std::size_t i = 0; i < kSides.size(); ++i)
        for (std::size_t nEnd = 0; nEnd < aszEnds.size(); ++nEnd)
            AddPoint(a, std::string("side_line_px/") + kSides[i].szKey + "/" + aszEnds[nEnd],
                     std::string(kSides[i].szKey) + " side, fitted line " + aszEnds[nEnd],
                     LineEnd(t, i, nEnd));
    return a;
}

} // namespace tools

#include "trust/trust.h"

#include "trust/noise.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tools {
namespace {

using Ends = std::array<Point, 2>;

Ends EndsOf(const SideName& n, const std::array<Point, 4>& aCorners) {
    return {aCorners[n.nFrom], aCorners[n.nTo]};
}

// Where a side's line must lie, as far as that is known.
std::optional<Ends> KnownEnds(const SideName& n, const CameraMeasurement& tMeasured, const StageView& tView) {
    std::array<std::optional<Point>, 4> aoCorners = tMeasured.aoCorners;
    for (std::size_t i = 0; i < aoCorners.size(); ++i)
        if (!aoCorners[i] && tView.oFrameEdge)
            aoCorners[i] = tView.oFrameEdge->Corners()[i];
    if (!aoCorners[n.nFrom] || !aoCorners[n.nTo])
        return std::nullopt;
    return Ends{*aoCorners[n.nFrom], *aoCorners[n.nTo]};
}

// From a point to the picture's border beyond a side, px. Left, top, right, bottom.
double BorderBeyond(std::size_t nSide, const Picture& tPicture, Point t) {
    return std::array{t.dX + 0.5, t.dY + 0.5, tPicture.nColumns - 0.5 - t.dX,
                      tPicture.nRows - 0.5 - t.dY}[nSide];
}

// From where the stages began to search for it to the border.
SideReading SearchedSide(std::size_t nSide, const Picture& tPicture, const Rectangle& tStart) {
    const auto [tFrom, tTo] = EndsOf(kSides[nSide], tStart.Corners());
    const double dReach = BorderBeyond(nSide, tPicture, tFrom);
    const bool bOutwardIsRight = nSide == 0 || nSide == 3;
    if (bOutwardIsRight)
        return SearchSide(tPicture, tFrom, tTo, dReach);
    SideReading t = SearchSide(tPicture, tTo, tFrom, dReach);
    if (t.oEnds)
        std::ranges::reverse(*t.oEnds);
    return t;
}

bool WereMeasured(const SideName& n, const CameraMeasurement& t) {
    return t.aoCorners[n.nFrom] && t.aoCorners[n.nTo];
}

void AddBorder(std::size_t nSide, const Picture& tPicture, const Ends& tEnds, CameraTrust& trust) {
    for (const Point& tEnd : tEnds) {
        const double d = BorderBeyond(nSide, tPicture, tEnd);
        trust.oBorderDistance = std::min(d, trust.oBorderDistance.value_or(d));
    }
}

// Other things than the frame may be met on the way to the border; they do not stand in a straight line.
void SearchSide(std::size_t nSide, const Picture& tPicture, const Rectangle& tStart, CameraTrust& trust) {
    const SideReading& tReading = trust.aoSides[nSide].emplace(SearchedSide(nSide, tPicture, tStart));
    if (tReading.oEnds && *tReading.oResidual < kLargeResidual)
        AddBorder(nSide, tPicture, *tReading.oEnds, trust);
}

void ReadSide(std::size_t nSide, const Picture& tPicture, const Ends& tEnds, bool bMeasured,
              CameraTrust& trust) {
    const SideReading& tReading = trust.aoSides[nSide].emplace(ReadSide(tPicture, tEnds[0], tEnds[1]));
    if (tReading.oEnds && bMeasured) {
        const double dFrom = Distance(tEnds[0], (*tReading.oEnds)[0]),
                     dTo = Distance(tEnds[1], (*tReading.oEnds)[1]);
        trust.aoCornersOff[nSide] = {std::max(dFrom, dTo),
                                     dTo > dFrom ? kSides[nSide].nTo : kSides[nSide].nFrom};
    }
    AddBorder(nSide, tPicture, tReading.oEnds.value_or(tEnds), trust);
}

void AddSide(std::size_t nSide, const Picture& tPicture, const CameraMeasurement& tMeasured,
             const StageView& tView, CameraTrust& trust) {
    if (const std::optional<Ends> oEnds = KnownEnds(kSides[nSide], tMeasured, tView))
        ReadSide(nSide, tPicture, *oEnds, WereMeasured(kSides[nSide], tMeasured), trust);
    else if (tView.oFrameStart)
        SearchSide(nSide, tPicture, *tView.oFrameStart, trust);
}

// The frame's outer edge lies half a line beyond its sides' middle lines.
double HalfLine(const CameraTrust& trust) {
    double dHalf = 0;
    for (const std::optional<SideReading>& o : trust.aoSides)
        if (o && o->oWidth)
            dHalf = std::max(dHalf, *o->oWidth / 2);
    return dHalf;
}

// A side that no line shows may be nearest to the border, or beyond it.
bool IsSideUnseen(const CameraTrust& t) {
    return std::ranges::any_of(t.aoSides, [](const auto& o) { return !o || o->nRead == 0; });
}

void FinishBorder(const CameraMeasurement& tMeasured, CameraTrust& trust) {
    if (!trust.oBorderDistance)
        return;
    *trust.oBorderDistance -= HalfLine(trust);
    if (MissingCorner(tMeasured) && IsSideUnseen(trust) && *trust.oBorderDistance >= kNearBorder)
        trust.oBorderDistance.reset();
}

CameraTrust::Frame FrameOf(const CameraReading& t) {
    const auto& [tLeft, tTop, tRight, tBottom] = t.aSides;
    return {std::midpoint(tTop.dValue, tBottom.dValue), std::midpoint(tLeft.dValue, tRight.dValue),
            RollShift(t)};
}

} // namespace

CameraTrust TrustOf(const Picture& tPicture, const CameraResult& tResult, const Limits& limits,
                    bool bMeasured) {
    const auto& [tMeasured, tView, tReading, tFrameSearch] = tResult;
    CameraTrust trust;
    trust.bMeasured = bMeasured;
    trust.tFrameSearch = tFrameSearch;
    trust.tLimits = limits.tTrust;
    for (std::size_t i = 0; i < kSides.size(); ++i)
        AddSide(i, tPicture, tMeasured, tView, trust);
    FinishBorder(tMeasured, trust);
    trust.oNoise = ReadNoise(tPicture);
    if (tReading.oReading) {
        trust.oSoundness = SoundnessOf(*tReading.oReading);
        trust.oFrame = FrameOf(*tReading.oReading);
    }
    trust.oCrossSpan = tMeasured.oBarSpan;
    if (tView.oFirstWindow)
        trust.oCross = ReadCrossLevels(tPicture, *tView.oFirstWindow);
    trust.oCrossThreshold = tView.oCrossThreshold;
    trust.tMargins = MarginsOf(tPicture, tResult);
    return trust;
}

} // namespace tools

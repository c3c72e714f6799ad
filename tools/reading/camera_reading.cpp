#include "reading/camera_reading.h"

#include "reading/angles.h"
#include "reading/cross_bar.h"
#include "reading/frame_search.h"
#include "reading/pixel_phase.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// Of the top side: corners that the stages found, or the search, are nearer to the truth.
constexpr double kReach = 0.03;

// Next to a corner the other side's line is in the way: so many widths of the line, and px for blur.
constexpr double kClearOfCorner = 0.6;
constexpr double kBlurOfCorner = 5.0;

using Corners = std::array<Point, 4>;

double Along(bool bHorizontal, Point t) {
    return bHorizontal ? t.dX : t.dY;
}

UncertainLine LineBetween(bool bHorizontal, Point tFrom, Point tTo) {
    const double dFirst = Along(bHorizontal, tFrom), dLast = Along(bHorizontal, tTo);
    const double dAcross = Along(!bHorizontal, tFrom);
    return {dFirst, dAcross, (Along(!bHorizontal, tTo) - dAcross) / (dLast - dFirst)};
}

// Where the diagonals cross: the picture of the frame's middle.
Point MiddleOf(const Corners& a) {
    return CrossingOf(LineBetween(true, a[0], a[3]), LineBetween(false, a[1], a[2])).tPlace;
}

// A half side as corners tell of it: from the middle to so far from its corner.
struct Half {
    bool bHorizontal;
    UncertainLine tLine;
    Stretch tAlong;
};

Half HalfOf(std::size_t nHalf, const Corners& a, double dClear) {
    const SideName& t = kSides[nHalf / 2];
    const bool bHorizontal = t.bAlongRows;
    const double dMiddle = Along(bHorizontal, MiddleOf(a)), dFirst = Along(bHorizontal, a[t.nFrom]) + dClear;
    const double dLast = Along(bHorizontal, a[t.nTo]) - dClear;
    return {bHorizontal, LineBetween(bHorizontal, a[t.nFrom], a[t.nTo]),
            nHalf % 2 == 0 ? Stretch{dFirst, dMiddle} : Stretch{dMiddle, dLast}};
}

// The half sides before the first one that is not to be seen.
std::vector<RoughLine> RoughHalves(const Picture& tPicture, const Corners& a) {
    const double dReach = kReach * (a[1].dX - a[0].dX);
    std::vector<RoughLine> aHalves;
    std::vector<double> adWidths;
    for (std::size_t n = 0; n < kHalfSides; ++n) {
        const Half t = HalfOf(n, a, dReach);
        const auto o = ReadRoughly(ViewAlong(t.bHorizontal, tPicture), t.tAlong, t.tLine, dReach);
        if (!o)
            return aHalves;
        aHalves.push_back(*o);
        adWidths.push_back(o->dWidth);
    }
    // One line all around: dirt may widen some of it.
    const double dWidth = Median(std::move(adWidths));
    for (RoughLine& t : aHalves)
        t.dWidth = dWidth;
    return aHalves;
}

std::optional<LineCentres> ReadHalf(const Picture& tPicture, std::size_t nHalf, const Corners& a,
                                    const RoughLine& tRough) {
    const Half t = HalfOf(nHalf, a, kClearOfCorner * tRough.dWidth + kBlurOfCorner);
    return ReadCentres(ViewAlong(t.bHorizontal, tPicture), t.tAlong, tRough);
}

// A bar is expected between the middles of the sides that it points to.
std::optional<LineCentres> ReadBar(const Picture& tPicture, const ChartMeasures& tMeasures, bool bHorizontal,
                                   const Corners& a, double dFrameLine) {
    const double dWidth = dFrameLine * (bHorizontal ? tMeasures.dHorizontalBar : tMeasures.dVerticalBar),
                 dOther = dFrameLine * (bHorizontal ? tMeasures.dVerticalBar : tMeasures.dHorizontalBar);
    const auto Between = [&](std::size_t n, std::size_t m) {
        return Point{(a[n].dX + a[m].dX) / 2, (a[n].dY + a[m].dY) / 2};
    };
    const Point tFrom = Between(0, bHorizontal ? 2 : 1), tTo = Between(bHorizontal ? 1 : 2, 3);
    const UncertainLine t = LineBetween(bHorizontal, tFrom, tTo);
    const double dMiddle = Along(bHorizontal, MiddleOf(a));
    return ReadBar(ViewAlong(bHorizontal, tPicture), {{dMiddle, t.At(dMiddle), t.dSlope}, dWidth},
                   (Along(bHorizontal, tTo) - Along(bHorizontal, tFrom)) / 2, dOther);
}

CameraReading ReadingOf(std::span<const LineCentres> aLines, const ChartMeasures& tMeasures) {
    CameraReading reading;
    reading.aLines = ReadingsOf(aLines);
    for (std::size_t n = 0; n < 4; ++n)
        reading.aCorners[n] = CornerOf(n, reading.aLines);
    reading.tCentre = CrossingOf(reading.aLines[kHorizontalBar].tLine, reading.aLines[kVerticalBar].tLine);
    DeriveTilts(tMeasures, reading);
    reading.tRoll = RollOf(reading.aLines[kHorizontalBar].tLine);
    return reading;
}

ReadingOutcome ReadFrom(const Picture& tPicture, const ChartMeasures& tMeasures, const Corners& aStart) {
    const std::vector<RoughLine> aRough = RoughHalves(tPicture, aStart);
    if (aRough.size() < kHalfSides)
        return {{}, NoReading::kSideHidden, aRough.size()};
    Corners a;
    for (std::size_t n = 0; n < 4; ++n)
        a[n] = CornerOf(n, aRough).tPlace;
    if (!AreLikeAFrame(a, tMeasures))
        return {{}, NoReading::kSideHidden};
    std::vector<LineCentres> aLines;
    for (std::size_t n = 0; n < kChartLines; ++n) {
        auto o = n < kHalfSides ? ReadHalf(tPicture, n, a, aRough[n])
                                : ReadBar(tPicture, tMeasures, n == kHorizontalBar, a, aRough[0].dWidth);
        if (!o)
            return {{}, n < kHalfSides ? NoReading::kSideHidden : NoReading::kNoCross, n};
        aLines.push_back(std::move(*o));
    }
    return {ReadingOf(aLines, tMeasures)};
}

bool LieIn(const Picture& tPicture, const Corners& a) {
    return std::ranges::all_of(a, [&](Point t) {
        return t.dX >= 0 && t.dY >= 0 && t.dX < tPicture.nColumns && t.dY < tPicture.nRows;
    });
}

} // namespace

ReadingOutcome ReadCamera(const Picture& tPicture, const ChartMeasures& tMeasures,
                          const std::optional<std::array<Point, 4>>& oCorners) {
    if (oCorners && LieIn(tPicture, *oCorners) && AreLikeAFrame(*oCorners, tMeasures))
        if (ReadingOutcome t = ReadFrom(tPicture, tMeasures, *oCorners); t.oReading)
            return t;
    const auto tFound = FindFrame(tPicture, tMeasures);
    if (const auto* const pReason = std::get_if<NoReading>(&tFound))
        return {{}, *pReason};
    const auto& aFound = std::get<Corners>(tFound);
    return LieIn(tPicture, aFound) ? ReadFrom(tPicture, tMeasures, aFound)
                                   : ReadingOutcome{{}, NoReading::kFrameCut};
}

} // namespace tools

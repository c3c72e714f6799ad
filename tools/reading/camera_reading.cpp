#include "reading/camera_reading.h"

#include "reading/cross_bar.h"
#include "reading/frame_search.h"
#include "reading/pixel_phase.h"
#include "reading/uncertain_geometry.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// Of the top side: corners that the stages found, or the search, are nearer to the truth.
constexpr double kReach = 0.03;

// Next to a corner the other side's line is in the way: so many widths of the line, and px for blur.
constexpr double kClearOfCorner = 0.6;
constexpr double kBlurOfCorner = 5.0;

constexpr double kLeastShare = 0.3; // of a half side's lines across

using Corners = std::array<Point, 4>;

bool IsHorizontal(std::size_t nSide) {
    return nSide % 2 == 1;
}

double Along(bool bHorizontal, Point t) {
    return bHorizontal ? t.dX : t.dY;
}

// The straight line between two points.
UncertainLine LineBetween(bool bHorizontal, Point tFrom, Point tTo) {
    const double dFirst = Along(bHorizontal, tFrom), dLast = Along(bHorizontal, tTo);
    const double dAcross = Along(!bHorizontal, tFrom);
    return {dFirst, dAcross, (Along(!bHorizontal, tTo) - dAcross) / (dLast - dFirst)};
}

// Where the diagonals cross: the picture of the frame's middle.
Point MiddleOf(const Corners& a) {
    const double dX1 = a[3].dX - a[0].dX, dY1 = a[3].dY - a[0].dY, dX2 = a[2].dX - a[1].dX,
                 dY2 = a[2].dY - a[1].dY;
    const double d = ((a[1].dX - a[0].dX) * dY2 - (a[1].dY - a[0].dY) * dX2) / (dX1 * dY2 - dY1 * dX2);
    return {a[0].dX + d * dX1, a[0].dY + d * dY1};
}

// Half of a side: its line as expected, and its way from the middle's line to its corner.
struct Half {
    bool bHorizontal;
    UncertainLine tExpected;
    double dMiddle, dCorner; // along
    Stretch Along(double dClear) const {
        return dCorner < dMiddle ? Stretch{dCorner + dClear, dMiddle} : Stretch{dMiddle, dCorner - dClear};
    }
};

Half HalfOf(std::size_t nSide, std::size_t nEnd, const Corners& a) {
    const bool bHorizontal = IsHorizontal(nSide);
    const Point tFrom = a[kSides[nSide].nFrom], tTo = a[kSides[nSide].nTo];
    return {bHorizontal, LineBetween(bHorizontal, tFrom, tTo), Along(bHorizontal, MiddleOf(a)),
            Along(bHorizontal, nEnd == 0 ? tFrom : tTo)};
}

using RoughHalves = std::array<std::array<RoughLine, 2>, 4>;

std::optional<RoughHalves> RoughHalvesOf(const Picture& tPicture, const Corners& a) {
    const double dReach = kReach * (a[1].dX - a[0].dX);
    RoughHalves aa;
    std::vector<double> adWidths;
    for (std::size_t nSide = 0; nSide < 4; ++nSide)
        for (std::size_t nEnd = 0; nEnd < 2; ++nEnd) {
            const Half t = HalfOf(nSide, nEnd, a);
            const auto o =
                ReadRoughly(ViewAlong(t.bHorizontal, tPicture), t.Along(dReach), t.tExpected, dReach);
            if (!o)
                return std::nullopt;
            aa[nSide][nEnd] = *o;
            adWidths.push_back(o->dWidth);
        }
    // One line all around: dirt may widen some of it.
    const double dWidth = Median(std::move(adWidths));
    for (auto& a2 : aa)
        for (RoughLine& t : a2)
            t.dWidth = dWidth;
    return aa;
}

Corners RoughCorners(const RoughHalves& aa) {
    Corners a;
    for (std::size_t n = 0; n < 4; ++n)
        a[n] = CornerOf(n, aa).tPlace;
    return a;
}

// Half sides as kSides, two of each, then the horizontal and the vertical bar.
using ChartLines = std::vector<LineCentres>;
constexpr std::size_t kHorizontalBar = 8, kVerticalBar = 9;

bool Add(std::optional<LineCentres> o, ChartLines& lines) {
    if (!o || static_cast<double>(o->aCentres.size()) < kLeastShare * o->nLines)
        return false;
    lines.push_back(std::move(*o));
    return true;
}

bool ReadHalves(const Picture& tPicture, const RoughHalves& aaRough, const Corners& a, ChartLines& lines) {
    for (std::size_t nSide = 0; nSide < 4; ++nSide)
        for (std::size_t nEnd = 0; nEnd < 2; ++nEnd) {
            const Half t = HalfOf(nSide, nEnd, a);
            const RoughLine& tRough = aaRough[nSide][nEnd];
            const Stretch tAlong = t.Along(kClearOfCorner * tRough.dWidth + kBlurOfCorner);
            if (!Add(ReadCentres(ViewAlong(t.bHorizontal, tPicture), tAlong, tRough), lines))
                return false;
        }
    return true;
}

// A bar's direction is that between its neighbouring sides, its middle the frame's.
RoughLine ExpectedBar(bool bHorizontal, const Corners& a, double dWidth) {
    const SideName &tFirst = kSides[bHorizontal ? 1 : 0], &tSecond = kSides[bHorizontal ? 3 : 2];
    const Point tMiddle = MiddleOf(a);
    const double dSlope = (LineBetween(bHorizontal, a[tFirst.nFrom], a[tFirst.nTo]).dSlope +
                           LineBetween(bHorizontal, a[tSecond.nFrom], a[tSecond.nTo]).dSlope) /
                          2;
    return {{Along(bHorizontal, tMiddle), Along(!bHorizontal, tMiddle), dSlope}, dWidth};
}

bool ReadCross(const Picture& tPicture, const Corners& a, double dWidth, ChartLines& lines) {
    return std::ranges::all_of(std::array{true, false}, [&](bool bHorizontal) {
        const double dHalf = (Along(bHorizontal, a[3]) - Along(bHorizontal, a[0])) / 2;
        return Add(ReadBar(ViewAlong(bHorizontal, tPicture), ExpectedBar(bHorizontal, a, dWidth), dHalf),
                   lines);
    });
}

CameraReading ReadingOf(const ChartLines& tLines, const ChartMeasures& tMeasures) {
    const std::vector<LineReading> aReadings = ReadingsOf(tLines);
    CameraReading reading;
    for (std::size_t n = 0; n < kHorizontalBar; ++n)
        reading.aaHalves[n / 2][n % 2] = aReadings[n];
    reading.tHorizontalBar = aReadings[kHorizontalBar];
    reading.tVerticalBar = aReadings[kVerticalBar];
    for (std::size_t n = 0; n < 4; ++n)
        reading.aCorners[n] = CornerOf(n, reading.aaHalves);
    reading.tCentre = CrossingOf(reading.tHorizontalBar.tLine, reading.tVerticalBar.tLine);
    DeriveAngles(tMeasures, reading);
    return reading;
}

ReadingOutcome ReadFrom(const Picture& tPicture, const ChartMeasures& tMeasures, const Corners& aStart) {
    const std::optional<RoughHalves> oRough = RoughHalvesOf(tPicture, aStart);
    if (!oRough)
        return {{}, NoReading::kSideHidden};
    const Corners a = RoughCorners(*oRough);
    ChartLines tLines;
    if (!AreLikeAFrame(a, tMeasures) || !ReadHalves(tPicture, *oRough, a, tLines))
        return {{}, NoReading::kSideHidden};
    if (!ReadCross(tPicture, a, (*oRough)[0][0].dWidth, tLines))
        return {{}, NoReading::kNoCross};
    return {ReadingOf(tLines, tMeasures)};
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
    const FrameFound tFound = FindFrame(tPicture, tMeasures);
    if (!tFound.oCorners)
        return {{}, tFound.tReason};
    return ReadFrom(tPicture, tMeasures, *tFound.oCorners);
}

} // namespace tools

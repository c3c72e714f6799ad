#include "trust/side_reading.h"

#include "reading/robust_line.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <numeric>

namespace tools {
namespace {

// Camera noise stays well below this step, print well above it.
constexpr double kLeastStep = 10.0;

// A line reaches so far to each side, so that it is paper for the most part: the frame's line takes 2 % of a
// short side.
constexpr double kReachShare = 0.05;
constexpr double kLeastReach = 8.0;

// From and to, px along or beside a side.
struct Span {
    double dFirst;
    double dLast;
};

// Grey values on a line across the side, one px apart; those outside the picture are left out.
struct Profile {
    double dFirst; // first sample, px from the side
    std::vector<double> adGrey;
};

double Between(double dFrom, double dTo, double dShare) {
    return dFrom + dShare * (dTo - dFrom);
}

// Between the four pixels around the place; the last column and row stand for a next one too.
double GreyAt(const Picture& t, double x, double y) {
    const auto nX = static_cast<std::ptrdiff_t>(x), nY = static_cast<std::ptrdiff_t>(y);
    const unsigned char* const p = t.aGrey.data() + nY * t.nColumns + nX;
    const std::ptrdiff_t nRight = nX + 1 < t.nColumns ? 1 : 0, nBelow = nY + 1 < t.nRows ? t.nColumns : 0;
    const double dShare = x - static_cast<double>(nX);
    return Between(Between(p[0], p[nRight], dShare), Between(p[nBelow], p[nBelow + nRight], dShare),
                   y - static_cast<double>(nY));
}

bool Holds(const Picture& t, double x, double y) {
    return x >= 0 && y >= 0 && x <= t.nColumns - 1 && y <= t.nRows - 1;
}

// What the profile held before is gone.
void TakeProfile(const Picture& picture, Point tMiddle, Point tNormal, Span tAcross, Profile& profile) {
    const auto HoldsAt = [&](double d) {
        return Holds(picture, tMiddle.dX + d * tNormal.dX, tMiddle.dY + d * tNormal.dY);
    };
    const bool bWhole = HoldsAt(tAcross.dFirst) && HoldsAt(tAcross.dLast);
    profile.adGrey.resize(static_cast<std::size_t>(tAcross.dLast - tAcross.dFirst) + 1);
    const auto pFirst = profile.adGrey.begin();
    auto pNext = pFirst;
    for (double d = tAcross.dFirst; d <= tAcross.dLast; d += 1.0) {
        if (!bWhole && !HoldsAt(d))
            continue;
        if (pNext == pFirst)
            profile.dFirst = d;
        *pNext++ = GreyAt(picture, tMiddle.dX + d * tNormal.dX, tMiddle.dY + d * tNormal.dY);
    }
    profile.adGrey.erase(pNext, profile.adGrey.end());
}

// Of at least one sample, 0 to 255. Counted by whole levels, of which the middle one's few samples are
// sorted.
double MedianGrey(std::span<const double> adGrey) {
    std::array<std::uint32_t, 256> anCounts = {};
    for (const double d : adGrey)
        ++anCounts[static_cast<std::size_t>(d)];
    std::size_t nLevel = 255, nBehind = (adGrey.size() - 1) / 2; // of those that are as bright or brighter
    for (; nBehind >= anCounts[nLevel]; --nLevel)
        nBehind -= anCounts[nLevel];
    // A sample that is not of the level is written too, but overwritten by the next: a branch would be
    // foreseen badly.
    std::vector<double> ad(anCounts[nLevel] + 1);
    auto pEnd = ad.begin();
    for (const double d : adGrey) {
        *pEnd = d;
        pEnd += static_cast<std::size_t>(d) == nLevel;
    }
    const auto pMedian = ad.begin() + static_cast<std::ptrdiff_t>(nBehind);
    std::ranges::nth_element(ad.begin(), pMedian, pEnd, std::greater<>());
    return *pMedian;
}

// Distance from the run's darkest sample to where the grey value passes the threshold.
std::optional<double> EdgeBeyond(std::span<const double> adGrey, std::size_t nDarkest, int nDirection,
                                 double dThreshold) {
    double dInside = adGrey[nDarkest];
    const std::size_t nSamples = nDirection > 0 ? adGrey.size() - 1 - nDarkest : nDarkest;
    for (std::size_t n = 1; n <= nSamples; ++n) {
        const double dNext = adGrey[nDirection > 0 ? nDarkest + n : nDarkest - n];
        if (dNext > dThreshold)
            return static_cast<double>(n - 1) + (dThreshold - dInside) / (dNext - dInside);
        dInside = dNext;
    }
    return std::nullopt;
}

// Mean of the run's inner half, clear of its edges; a run too narrow for it has its darkest sample.
double InnerLevel(std::span<const double> adGrey, double dCentre, double dWidth, double dDarkest) {
    double dSum = 0;
    int nCount = 0;
    for (double d = std::ceil(dCentre - dWidth / 4); d <= dCentre + dWidth / 4; d += 1.0, ++nCount)
        dSum += adGrey[static_cast<std::size_t>(d)];
    return nCount != 0 ? dSum / nCount : dDarkest;
}

// A run's centre: px along the side and beside it.
struct Place {
    double dAlong;
    double dBeside;
};

// beside = offset + slope x along
struct FittedLine {
    double dOffset;
    double dSlope;
    double At(double dAlong) const { return dOffset + dSlope * dAlong; }
};

// By least squares of the distances beside. The places differ along the side.
FittedLine FitLine(const std::vector<Place>& a) {
    const auto dCount = static_cast<double>(a.size());
    Place tMean = {};
    for (const Place& t : a) {
        tMean.dAlong += t.dAlong / dCount;
        tMean.dBeside += t.dBeside / dCount;
    }
    double dProducts = 0, dSquares = 0;
    for (const Place& t : a) {
        dProducts += (t.dAlong - tMean.dAlong) * (t.dBeside - tMean.dBeside);
        dSquares += (t.dAlong - tMean.dAlong) * (t.dAlong - tMean.dAlong);
    }
    const double dSlope = dProducts / dSquares;
    return {tMean.dBeside - dSlope * tMean.dAlong, dSlope};
}

double ResidualOf(const std::vector<Place>& a, const FittedLine& tLine) {
    double dSquares = 0;
    for (const Place& t : a)
        dSquares += std::pow(t.dBeside - tLine.At(t.dAlong), 2);
    return std::sqrt(dSquares / static_cast<double>(a.size()));
}

// The way between two points.
struct Way {
    Point tFrom;
    double dLength;
    Point tAlong, tNormal; // unit vectors

    Way(Point tStart, Point tEnd)
        : tFrom(tStart), dLength(Distance(tStart, tEnd)),
          tAlong{(tEnd.dX - tStart.dX) / dLength, (tEnd.dY - tStart.dY) / dLength}, tNormal{-tAlong.dY,
                                                                                            tAlong.dX} {}

    Point At(double dAlong, double dBeside) const {
        return {tFrom.dX + dAlong * tAlong.dX + dBeside * tNormal.dX,
                tFrom.dY + dAlong * tAlong.dY + dBeside * tNormal.dY};
    }
};

void AddLine(SideReading& reading, const Way& tWay, const std::vector<Place>& aPlaces) {
    if (aPlaces.size() < 3)
        return;
    const FittedLine tLine = FitLine(aPlaces);
    reading.oResidual = ResidualOf(aPlaces, tLine);
    reading.oEnds = {tWay.At(0, tLine.At(0)), tWay.At(tWay.dLength, tLine.At(tWay.dLength))};
}

void AddLevels(SideReading& reading, const std::vector<DarkRun>& aRuns) {
    if (aRuns.empty())
        return;
    const auto MedianOf = [&](double DarkRun::*pMember) {
        std::vector<double> ad;
        ad.reserve(aRuns.size());
        for (const DarkRun& tRun : aRuns)
            ad.push_back(tRun.*pMember);
        return Median(ad);
    };
    reading.oDark = MedianOf(&DarkRun::dDark);
    reading.oBright = MedianOf(&DarkRun::dBright);
    reading.oWidth = MedianOf(&DarkRun::dWidth);
}

// On lines across the way.
SideReading ReadLines(const Picture& tPicture, const Way& tWay, Span tAlong, Span tAcross) {
    SideReading t;
    std::vector<DarkRun> aRuns;
    std::vector<Place> aPlaces;
    Profile tProfile = {};
    for (double d = tAlong.dFirst; d <= tAlong.dLast; d += kLineStep, ++t.nLines) {
        TakeProfile(tPicture, tWay.At(d, 0), tWay.tNormal, tAcross, tProfile);
        if (const std::optional<DarkRun> oRun = FindDarkRun(tProfile.adGrey)) {
            aRuns.push_back(*oRun);
            aPlaces.push_back({d, tProfile.dFirst + oRun->dCentre});
        }
    }
    t.nRead = static_cast<int>(aRuns.size());
    AddLevels(t, aRuns);
    AddLine(t, tWay, aPlaces);
    return t;
}

// No way in the picture is longer than its sides together; false for a NaN.
bool IsWayIn(const Picture& tPicture, double dLength) {
    return dLength > 0 && dLength <= 1.0 * tPicture.nColumns + tPicture.nRows;
}

} // namespace

double Distance(Point a, Point b) {
    return std::hypot(a.dX - b.dX, a.dY - b.dY);
}

std::optional<DarkRun> FindDarkRun(std::span<const double> adGrey) {
    if (adGrey.empty())
        return std::nullopt;
    const auto pDarkest = std::ranges::min_element(adGrey);
    const double dBright = MedianGrey(adGrey); // the run takes less than half
    if (dBright - *pDarkest < kLeastStep)
        return std::nullopt;
    const auto nDarkest = static_cast<std::size_t>(pDarkest - adGrey.begin());
    const double dThreshold = std::midpoint(*pDarkest, dBright);
    const std::optional<double> oBefore = EdgeBeyond(adGrey, nDarkest, -1, dThreshold),
                                oAfter = EdgeBeyond(adGrey, nDarkest, 1, dThreshold);
    if (!oBefore || !oAfter)
        return std::nullopt;
    const double dWidth = *oBefore + *oAfter;
    const double dCentre = static_cast<double>(nDarkest) + (*oAfter - *oBefore) / 2;
    return DarkRun{dCentre, dWidth, InnerLevel(adGrey, dCentre, dWidth, *pDarkest), dBright};
}

SideReading ReadSide(const Picture& tPicture, Point tFrom, Point tTo) {
    const Way tWay(tFrom, tTo);
    const double dReach = std::max(kLeastReach, std::floor(tWay.dLength * kReachShare));
    if (!IsWayIn(tPicture, tWay.dLength) || tWay.dLength <= 2 * dReach)
        return {};
    // Next to a corner the other side's line would be read too.
    return ReadLines(tPicture, tWay, {dReach, tWay.dLength - dReach}, {-dReach, dReach});
}

SideReading SearchSide(const Picture& tPicture, Point tFrom, Point tTo, double dReach) {
    const Way tWay(tFrom, tTo);
    if (!IsWayIn(tPicture, tWay.dLength) || !IsWayIn(tPicture, dReach))
        return {};
    return ReadLines(tPicture, tWay, {0, tWay.dLength}, {0, dReach});
}

} // namespace tools

#include "reading/frame_search.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// px. A smaller frame shows too few lines across.
constexpr double kLeastFrame = 100;

constexpr std::size_t kSampled = 61; // every so many pixels tell ink from paper
constexpr double kInkShare = 0.004;  // of the pixels: darker ones are ink in any picture of the chart
constexpr double kLeastContrast = 25;
constexpr int kScans = 100;          // in each direction
constexpr double kWidestLine = 0.05; // of the picture's longer side
constexpr int kLines = 4;            // in each direction; the frame has two, the cross one
constexpr int kSlopes = 60;          // to both sides
constexpr double kSlopeStep = 0.01;
constexpr double kBin = 4.0;            // px
constexpr double kApart = 0.05;         // of the picture's longer side: lines of the chart are farther apart
constexpr double kShapeTolerance = 0.2; // of the ratio of two lengths

struct Levels {
    double dInk, dPaper, dGlare;
};

Levels LevelsOf(const Picture& t) {
    std::vector<unsigned char> a;
    for (std::size_t n = 0; n < t.aGrey.size(); n += kSampled)
        a.push_back(t.aGrey[n]);
    std::ranges::sort(a);
    const auto At = [&](double dShare) {
        return static_cast<double>(a[static_cast<std::size_t>(dShare * static_cast<double>(a.size() - 1))]);
    };
    return {At(kInkShare), At(0.5), At(1 - kInkShare)};
}

// Middles of the dark runs on scans across, that may be of a line.
std::vector<LinePoint> DarkPlaces(const AxisView& tView, double dThreshold) {
    std::vector<LinePoint> a;
    const double dWidest = kWidestLine * std::max(tView.nAlong, tView.nAcross);
    for (int i = 0; i < kScans; ++i) {
        const int nLine = static_cast<int>((i + 0.5) * tView.nAlong / kScans);
        const LineAcross tLine = tView.Line(nLine);
        int nLastPaper = 0;
        for (int n = 1; n + 1 < tView.nAcross; ++n) {
            if ((tLine[n - 1] + tLine[n] + tLine[n + 1]) / 3.0 <= dThreshold)
                continue;
            const int nDark = n - nLastPaper - 1;
            if (nDark >= 2 && nDark <= dWidest && nLastPaper > 0)
                a.push_back({static_cast<double>(nLine), (n + nLastPaper) / 2.0});
            nLastPaper = n;
        }
    }
    return a;
}

struct Voted {
    UncertainLine tLine;
    int nVotes = 0;
};

// The line with most places on it.
Voted MostVoted(const std::vector<LinePoint>& a, const AxisView& tView) {
    Voted tBest;
    const double dMiddle = tView.nAlong / 2.0, dMargin = kSlopes * kSlopeStep * dMiddle;
    std::vector<int> anVotes(static_cast<std::size_t>((tView.nAcross + 2 * dMargin) / kBin) + 2);
    for (int i = -kSlopes; i <= kSlopes; ++i) {
        const double dSlope = i * kSlopeStep;
        std::ranges::fill(anVotes, 0);
        for (const LinePoint& t : a)
            ++anVotes[static_cast<std::size_t>((t.dAcross - dSlope * (t.dAlong - dMiddle) + dMargin) / kBin)];
        for (std::size_t n = 0; n + 1 < anVotes.size(); ++n)
            if (const int nVotes = anVotes[n] + anVotes[n + 1]; nVotes > tBest.nVotes)
                tBest = {{dMiddle, (static_cast<double>(n) + 1) * kBin - dMargin, dSlope}, nVotes};
    }
    return tBest;
}

std::vector<Voted> LinesAlong(bool bHorizontal, const Picture& tPicture, double dThreshold) {
    const AxisView tView = ViewAlong(bHorizontal, tPicture);
    std::vector<LinePoint> a = DarkPlaces(tView, dThreshold);
    std::vector<Voted> aLines;
    while (aLines.size() < kLines && !a.empty()) {
        aLines.push_back(MostVoted(a, tView));
        const double dApart = kApart * std::max(tView.nAlong, tView.nAcross);
        std::erase_if(a, [&](const LinePoint& t) {
            return std::fabs(t.dAcross - aLines.back().tLine.At(t.dAlong)) < dApart;
        });
    }
    std::ranges::sort(aLines, {}, [](const Voted& t) { return t.tLine.dOffset; });
    return aLines;
}

bool AreAlike(double dOne, double dOther) {
    return std::fabs(dOne - dOther) < kShapeTolerance * dOther;
}

using Corners = std::array<Point, 4>;

// A choice of two lines of each direction.
struct Rectangle {
    Corners aCorners;
    int nVotes;
};

std::vector<Rectangle> RectanglesOf(const std::vector<Voted>& aRows, const std::vector<Voted>& aColumns) {
    std::vector<Rectangle> a;
    const auto At = [](const Voted& t, const Voted& tOther) {
        return CrossingOf(t.tLine, tOther.tLine).tPlace;
    };
    for (std::size_t t = 0; t < aRows.size(); ++t)
        for (std::size_t b = t + 1; b < aRows.size(); ++b)
            for (std::size_t l = 0; l < aColumns.size(); ++l)
                for (std::size_t r = l + 1; r < aColumns.size(); ++r)
                    a.push_back(
                        {{At(aRows[t], aColumns[l]), At(aRows[t], aColumns[r]), At(aRows[b], aColumns[l]),
                          At(aRows[b], aColumns[r])},
                         aRows[t].nVotes + aRows[b].nVotes + aColumns[l].nVotes + aColumns[r].nVotes});
    return a;
}

double Length(const Corners& a, std::size_t nSide) {
    const Point tFrom = a[kSides[nSide].nFrom], tTo = a[kSides[nSide].nTo];
    return std::hypot(tTo.dX - tFrom.dX, tTo.dY - tFrom.dY);
}

// Its corners, with lines that are darker than a level.
std::variant<NoReading, Corners> FindDarkerThan(double dThreshold, const Picture& tPicture,
                                                const ChartMeasures& tMeasures) {
    const ChartMeasures tOnSide = {tMeasures.dDistance, tMeasures.dHalfSpanY, tMeasures.dHalfSpanX};
    std::variant<NoReading, Corners> found = NoReading::kNoFrame;
    int nMost = 0;
    for (const auto& [aCorners, nVotes] :
         RectanglesOf(LinesAlong(true, tPicture, dThreshold), LinesAlong(false, tPicture, dThreshold))) {
        const bool bUpright = AreLikeAFrame(aCorners, tMeasures);
        if (nVotes <= nMost || (!bUpright && !AreLikeAFrame(aCorners, tOnSide)))
            continue;
        nMost = nVotes;
        found = NoReading::kFrameOnSide;
        if (bUpright)
            found = aCorners;
    }
    return found;
}

} // namespace

bool AreLikeAFrame(const std::array<Point, 4>& aCorners, const ChartMeasures& tMeasures) {
    const double dLeft = Length(aCorners, 0), dTop = Length(aCorners, 1), dRight = Length(aCorners, 2),
                 dBottom = Length(aCorners, 3);
    return aCorners[0].dX < aCorners[1].dX && aCorners[2].dX < aCorners[3].dX &&
           aCorners[0].dY < aCorners[2].dY && aCorners[1].dY < aCorners[3].dY && dTop > kLeastFrame &&
           AreAlike(dLeft, dRight) && AreAlike(dTop, dBottom) &&
           AreAlike((dTop + dBottom) / tMeasures.dHalfSpanX, (dLeft + dRight) / tMeasures.dHalfSpanY);
}

std::variant<NoReading, Corners> FindFrame(const Picture& tPicture, const ChartMeasures& tMeasures) {
    const auto [dInk, dPaper, dGlare] = LevelsOf(tPicture);
    if (dGlare - dPaper > std::max(kLeastContrast, 2 * (dPaper - dInk))) {
        // Bright lines on dark paper, or something else on a dark ground.
        Picture tTurned = tPicture;
        for (unsigned char& ub : tTurned.aGrey)
            ub = static_cast<unsigned char>(255 - ub);
        const auto found = FindDarkerThan(255 - (dPaper + dGlare) / 2, tTurned, tMeasures);
        return std::holds_alternative<Corners>(found) ? NoReading::kInverted : NoReading::kNoFrame;
    }
    if (dPaper - dInk < kLeastContrast)
        return NoReading::kNoContrast;
    return FindDarkerThan((dInk + dPaper) / 2, tPicture, tMeasures);
}

} // namespace tools

#include "reading/line_reading.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

constexpr int kRoughLines = 16;
constexpr std::size_t kLeastRough = kRoughLines / 3;
constexpr std::size_t kLightBlocks = 8; // of a line, each with a level of its own

struct Ink {
    int nLine;
    InkAcross tAcross;
};

std::vector<double> Collected(std::span<const Ink> a, double InkAcross::*pMember) {
    std::vector<double> ad;
    ad.reserve(a.size());
    for (const Ink& t : a)
        ad.push_back(t.tAcross.*pMember);
    return ad;
}

struct InkAlong {
    std::vector<Ink> aInk;
    int nLines = 0; // that were looked at
};

InkAlong InkOn(const AxisView& tView, Stretch tAlong, const RoughLine& tRough, Stretch tGap) {
    InkAlong t;
    t.aInk.reserve(static_cast<std::size_t>(tAlong.Length()) + 1);
    for (int n = static_cast<int>(std::ceil(tAlong.dFirst)); n <= tAlong.dLast; ++n) {
        if (tGap.Holds(n))
            continue;
        ++t.nLines;
        if (const std::optional<InkAcross> o = ReadInk(tView, n, tRough.tLine.At(n), tRough.dWidth))
            t.aInk.push_back({n, *o});
    }
    return t;
}

// Dirt on one edge shifts a centre by half of what it adds to the width, so that a centre counts the less the
// farther its width is from the others'.
std::vector<LinePoint> CentresOf(const std::vector<Ink>& a, double dWidth) {
    const double dScatter = std::max(RobustScatter(Collected(a, &InkAcross::dWidth), dWidth), 0.01);
    std::vector<LinePoint> aPoints;
    aPoints.reserve(a.size());
    for (const Ink& t : a)
        aPoints.push_back({static_cast<double>(t.nLine), t.tAcross.dCentre,
                           Biweight((t.tAcross.dWidth - dWidth) / (1.5 * dScatter))});
    return aPoints;
}

// The paper's levels beside a block of lines.
struct BlockLight {
    double dBefore, dAfter;
};

double LightStepOf(std::span<const Ink> a) {
    double dStep = 0;
    std::optional<BlockLight> oLast;
    const std::size_t nSize = a.size() / kLightBlocks;
    for (std::size_t i = 0; i < kLightBlocks; ++i) {
        const std::span<const Ink> aBlock = a.subspan(i * nSize, nSize);
        const BlockLight t = {Median(Collected(aBlock, &InkAcross::dPaperBefore)),
                              Median(Collected(aBlock, &InkAcross::dPaperAfter))};
        const BlockLight tLast = oLast.value_or(t);
        dStep = std::max({dStep, std::fabs(t.dBefore - t.dAfter), std::fabs(t.dBefore - tLast.dBefore),
                          std::fabs(t.dAfter - tLast.dAfter)});
        oLast = t;
    }
    return dStep;
}

double ContrastOf(const std::vector<Ink>& a) {
    double dSum = 0;
    for (const auto& [nLine, t] : a)
        dSum += (t.dPaperBefore + t.dPaperAfter) / 2 - t.dDark;
    return dSum / static_cast<double>(a.size());
}

double WidthByLight(const std::vector<Ink>& a, const RobustFit& tFit) {
    double dSum = 0, dWeights = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        dSum += tFit.adWeights[i] * a[i].tAcross.dWidthByLight;
        dWeights += tFit.adWeights[i];
    }
    return dSum / dWeights;
}

} // namespace

std::optional<RoughLine> ReadRoughly(const AxisView& tView, Stretch tAlong, const UncertainLine& tExpected,
                                     double dReach) {
    std::vector<LinePoint> aPoints;
    std::vector<double> adWidths;
    for (int i = 0; i < kRoughLines; ++i) {
        const auto nLine = static_cast<int>(std::lerp(tAlong.dFirst, tAlong.dLast, (i + 0.5) / kRoughLines));
        if (const std::optional<InkAcross> o = FindInk(tView, nLine, tExpected.At(nLine), dReach)) {
            aPoints.push_back({static_cast<double>(nLine), o->dCentre});
            adWidths.push_back(o->dWidth);
        }
    }
    if (aPoints.size() < kLeastRough)
        return std::nullopt;
    return RoughLine{RepeatedMedianLine(aPoints), Median(std::move(adWidths))};
}

std::optional<LineCentres> ReadCentres(const AxisView& tView, Stretch tAlong, const RoughLine& tRough,
                                       Stretch tGap) {
    const auto [aInk, nLines] = InkOn(tView, tAlong, tRough, tGap);
    if (aInk.size() < kLightBlocks)
        return std::nullopt;
    const double dWidth = Median(Collected(aInk, &InkAcross::dWidth));
    std::vector<LinePoint> aCentres = CentresOf(aInk, dWidth);
    const std::optional<RobustFit> oFit = FitRobustly(aCentres, tRough.tLine);
    if (!oFit)
        return std::nullopt;
    return LineCentres{tAlong,
                       nLines,
                       std::move(aCentres),
                       Collected(aInk, &InkAcross::dCentreByLight),
                       *oFit,
                       dWidth,
                       WidthByLight(aInk, *oFit),
                       ContrastOf(aInk),
                       LightStepOf(aInk)};
}

} // namespace tools

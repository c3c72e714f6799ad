#include "reading/line_reading.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tools {
namespace {

constexpr int kRoughLines = 16;
constexpr std::size_t kLeastRough = kRoughLines / 3;
constexpr double kLeastShare = 0.3;     // of the lines across that are to show ink
constexpr std::size_t kLightBlocks = 8; // of a line, each with a level of its own
constexpr double kWidthReach = 1.5;     // of the biweight for widths against that for places

std::vector<double> Collected(std::span<const InkAcross> a, double InkAcross::*pMember) {
    std::vector<double> ad(a.size());
    std::ranges::transform(a, ad.begin(), pMember);
    return ad;
}

double Mean(std::span<const InkAcross> a, double InkAcross::*pMember) {
    const std::vector<double> ad = Collected(a, pMember);
    return std::reduce(ad.begin(), ad.end()) / static_cast<double>(ad.size());
}

// Dirt on one edge shifts a centre by half of what it adds to the width, so that a centre counts the less the
// farther its width is from the others'.
std::vector<LinePoint> CentresOf(std::span<const InkAcross> a, double dWidth) {
    const double dScatter = std::max(RobustScatter(Collected(a, &InkAcross::dWidth), dWidth), 0.01);
    std::vector<LinePoint> aPoints;
    aPoints.reserve(a.size());
    for (const InkAcross& t : a)
        aPoints.push_back({static_cast<double>(t.nLine), t.dCentre,
                           Biweight((t.dWidth - dWidth) / (kWidthReach * dScatter))});
    return aPoints;
}

double LightStepOf(std::span<const InkAcross> a) {
    double dStep = 0;
    std::array<double, 2> adLast = {};
    const std::size_t nSize = a.size() / kLightBlocks;
    for (std::size_t i = 0; i < kLightBlocks; ++i) {
        const auto aBlock = a.subspan(i * nSize, nSize);
        const std::array ad = {Median(Collected(aBlock, &InkAcross::dPaperBefore)),
                               Median(Collected(aBlock, &InkAcross::dPaperAfter))};
        if (i == 0)
            adLast = ad;
        dStep = std::max(
            {dStep, std::fabs(ad[0] - ad[1]), std::fabs(ad[0] - adLast[0]), std::fabs(ad[1] - adLast[1])});
        adLast = ad;
    }
    return dStep;
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
    LineCentres t;
    t.tReading.tAlong = tAlong;
    std::vector<InkAcross> aInk;
    for (int n = static_cast<int>(std::ceil(tAlong.dFirst)); n <= tAlong.dLast; ++n) {
        if (tGap.Holds(n))
            continue;
        ++t.tReading.nLines;
        if (const std::optional<InkAcross> o = ReadInk(tView, n, tRough.tLine.At(n), tRough.dWidth))
            aInk.push_back(*o);
    }
    if (aInk.size() < kLightBlocks || static_cast<double>(aInk.size()) < kLeastShare * t.tReading.nLines)
        return std::nullopt;
    t.tReading.dWidth = Median(Collected(aInk, &InkAcross::dWidth));
    t.aCentres = CentresOf(aInk, t.tReading.dWidth);
    const std::optional<RobustFit> oFit = FitRobustly(t.aCentres, tRough.tLine);
    if (!oFit)
        return std::nullopt;
    t.tFit = *oFit;
    t.adByLight = Collected(aInk, &InkAcross::dCentreByLight);
    const std::vector<double> adWidths = Collected(aInk, &InkAcross::dWidthByLight);
    t.dWidthByLight =
        std::inner_product(adWidths.begin(), adWidths.end(), oFit->adWeights.begin(), 0.0) / oFit->dWeight;
    t.tReading.dContrast = (Mean(aInk, &InkAcross::dPaperBefore) + Mean(aInk, &InkAcross::dPaperAfter)) / 2 -
                           Mean(aInk, &InkAcross::dDark);
    t.tReading.dLightStep = LightStepOf(aInk);
    return t;
}

} // namespace tools

#include "reading/robust_line.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// px. Noise-free pictures of a line along the pixels have no scatter at all.
constexpr double kLeastScatter = 1e-3;

constexpr std::size_t kEnoughForScatter = 128; // of many points: it only scales weights

constexpr int kScatterRounds = 2; // after them the scatter stays, so that the weights settle
constexpr int kRounds = 8;        // each moves an undisturbed line by a fifth of the one before

std::vector<double> ResidualsOf(std::span<const LinePoint> aPoints, const UncertainLine& tLine) {
    std::vector<double> ad(aPoints.size());
    std::ranges::transform(aPoints, ad.begin(),
                           [&](const LinePoint& t) { return t.dAcross - tLine.At(t.dAlong); });
    return ad;
}

// By how much neighbours that err alike make the variance larger than that of as many independent points:
// 1 + 2 x the autocorrelations, summed as long as they stand out from chance.
double CorrelationFactor(std::span<const double> ad) {
    const auto CorrelationAt = [&](std::size_t nLag) {
        double dSum = 0;
        for (std::size_t i = nLag; i < ad.size(); ++i)
            dSum += ad[i] * ad[i - nLag];
        return dSum;
    };
    const double dSquares = CorrelationAt(0), dChance = 2 * std::sqrt(2 / static_cast<double>(ad.size()));
    double dFactor = 1;
    for (std::size_t nLag = 1; nLag + 1 < ad.size() / 4; nLag += 2) {
        const double dPair = (CorrelationAt(nLag) + CorrelationAt(nLag + 1)) / dSquares;
        if (!(dPair > dChance))
            break;
        dFactor += 2 * dPair;
    }
    return dFactor;
}

} // namespace

double Median(std::vector<double> ad) {
    const auto pMiddle = ad.begin() + static_cast<std::ptrdiff_t>(ad.size() / 2);
    std::ranges::nth_element(ad, pMiddle);
    return *pMiddle;
}

double RobustScatter(std::span<const double> ad, double dMiddle) {
    const std::size_t nStep = 1 + ad.size() / kEnoughForScatter;
    std::vector<double> adDistances;
    adDistances.reserve(kEnoughForScatter);
    for (std::size_t i = 0; i < ad.size(); i += nStep)
        adDistances.push_back(std::fabs(ad[i] - dMiddle));
    return 1.4826 * Median(std::move(adDistances));
}

UncertainLine RepeatedMedianLine(std::span<const LinePoint> aPoints) {
    std::vector<double> adSlopes, adOwn, adOffsets;
    for (const LinePoint& t : aPoints) {
        adOwn.clear();
        for (const LinePoint& tOther : aPoints)
            if (tOther.dAlong != t.dAlong)
                adOwn.push_back((tOther.dAcross - t.dAcross) / (tOther.dAlong - t.dAlong));
        adSlopes.push_back(Median(adOwn));
    }
    const double dSlope = Median(std::move(adSlopes));
    for (const LinePoint& t : aPoints)
        adOffsets.push_back(t.dAcross - dSlope * t.dAlong);
    return {.dOffset = Median(std::move(adOffsets)), .dSlope = dSlope};
}

std::optional<RobustFit> FitRobustly(std::span<const LinePoint> aPoints, const UncertainLine& tStart) {
    if (aPoints.size() < 3)
        return std::nullopt;
    RobustFit fit = {.tLine = tStart, .adWeights = std::vector<double>(aPoints.size())};
    fit.tLine.dOffset += Median(ResidualsOf(aPoints, fit.tLine));
    for (int nRound = 0; nRound < kRounds; ++nRound) {
        const std::vector<double> adResiduals = ResidualsOf(aPoints, fit.tLine);
        if (nRound < kScatterRounds)
            fit.dScatter = std::max(RobustScatter(adResiduals, 0), kLeastScatter);
        for (std::size_t i = 0; i < aPoints.size(); ++i)
            fit.adWeights[i] = aPoints[i].dTrust * Biweight(adResiduals[i] / fit.dScatter);
        if (!FitOnce(aPoints, fit))
            return std::nullopt;
    }
    return fit;
}

bool FitOnce(std::span<const LinePoint> aPoints, RobustFit& fit) {
    double dAlong = 0, dAcross = 0, dProducts = 0;
    fit.dWeight = fit.dSquares = 0;
    for (std::size_t i = 0; i < aPoints.size(); ++i) {
        fit.dWeight += fit.adWeights[i];
        dAlong += fit.adWeights[i] * aPoints[i].dAlong;
        dAcross += fit.adWeights[i] * aPoints[i].dAcross;
    }
    fit.tLine = {dAlong / fit.dWeight, dAcross / fit.dWeight};
    for (std::size_t i = 0; i < aPoints.size(); ++i) {
        const double d = aPoints[i].dAlong - fit.tLine.dMiddle;
        fit.dSquares += fit.adWeights[i] * d * d;
        dProducts += fit.adWeights[i] * d * (aPoints[i].dAcross - fit.tLine.dOffset);
    }
    fit.tLine.dSlope = dProducts / fit.dSquares;
    return fit.dWeight > 0 && fit.dSquares > 0;
}

void AddVariances(std::span<const LinePoint> aPoints, RobustFit& fit) {
    std::vector<double> adInfluences;
    adInfluences.reserve(aPoints.size());
    double dInfluences = 0, dSlopes = 0, dTrust = 0;
    for (const LinePoint& t : aPoints) {
        const double dResidual = t.dAcross - fit.tLine.At(t.dAlong);
        const double q = std::pow(dResidual / (kBiweightReach * fit.dScatter), 2);
        adInfluences.push_back(q < 1 ? t.dTrust * dResidual * (1 - q) * (1 - q) : 0);
        dInfluences += adInfluences.back() * adInfluences.back();
        dSlopes += q < 1 ? t.dTrust * (1 - q) * (1 - 5 * q) : 0;
        dTrust += q < 1 ? t.dTrust : 0;
    }
    // Of an M-estimate of the place of one point, times the points' weight; two degrees of freedom are the
    // line's.
    const double dVariance = dInfluences * fit.dWeight / (dSlopes * dSlopes) * dTrust /
                             std::max(dTrust - 2, 1.0) * CorrelationFactor(adInfluences);
    fit.tLine.dOffsetVariance = dVariance / fit.dWeight;
    fit.tLine.dSlopeVariance = dVariance / fit.dSquares;
}

} // namespace tools

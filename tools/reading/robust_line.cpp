#include "reading/robust_line.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

// In units of the scatter. With it the fit of undisturbed points keeps 95 % of its efficiency.
constexpr double kBiweightReach = 4.685;

// px. Noise-free pictures of a line along the pixels have no scatter at all.
constexpr double kLeastScatter = 1e-3;

constexpr std::size_t kEnoughForScatter = 128; // of many points: it only scales weights

constexpr int kScatterRounds = 2; // after them the scatter stays, so that the weights settle
constexpr int kRounds = 30;
constexpr double kSettled = 1e-4; // px

std::vector<double> ResidualsOf(std::span<const LinePoint> aPoints, const UncertainLine& tLine) {
    std::vector<double> ad;
    ad.reserve(aPoints.size());
    for (const LinePoint& t : aPoints)
        ad.push_back(t.dAcross - tLine.At(t.dAlong));
    return ad;
}

// Sums of weighted least squares about the points' weighted middle.
struct Sums {
    double dWeight = 0, dAlong = 0, dAcross = 0, dSquares = 0, dProducts = 0;
};

Sums SumsOf(std::span<const LinePoint> aPoints, std::span<const double> adWeights) {
    Sums t;
    for (std::size_t i = 0; i < aPoints.size(); ++i) {
        t.dWeight += adWeights[i];
        t.dAlong += adWeights[i] * aPoints[i].dAlong;
        t.dAcross += adWeights[i] * aPoints[i].dAcross;
    }
    t.dAlong /= t.dWeight;
    t.dAcross /= t.dWeight;
    for (std::size_t i = 0; i < aPoints.size(); ++i) {
        const double d = aPoints[i].dAlong - t.dAlong;
        t.dSquares += adWeights[i] * d * d;
        t.dProducts += adWeights[i] * d * (aPoints[i].dAcross - t.dAcross);
    }
    return t;
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

// Variance of an M-estimate of the place of a point whose weight is 1, times the number of such points.
double PointVariance(std::span<const LinePoint> aPoints, std::span<const double> adResiduals, double dScatter,
                     double dWeights) {
    std::vector<double> adInfluences;
    adInfluences.reserve(aPoints.size());
    double dSquares = 0, dSlopes = 0, dTrust = 0;
    for (std::size_t i = 0; i < aPoints.size(); ++i) {
        const double u = adResiduals[i] / (kBiweightReach * dScatter), q = u * u;
        const double dInfluence = aPoints[i].dTrust * adResiduals[i] * Biweight(adResiduals[i] / dScatter);
        adInfluences.push_back(dInfluence);
        dSquares += dInfluence * dInfluence;
        dSlopes += q < 1 ? aPoints[i].dTrust * (1 - q) * (1 - 5 * q) : 0;
        dTrust += q < 1 ? aPoints[i].dTrust : 0;
    }
    const double dDegrees = std::max(dTrust - 2, 1.0);
    return dSquares * dWeights / (dSlopes * dSlopes) * dTrust / dDegrees * CorrelationFactor(adInfluences);
}

// The largest way of a line between two fits, px.
double MoveOf(std::span<const LinePoint> aPoints, const UncertainLine& tOne, const UncertainLine& tOther) {
    const double dFirst = aPoints.front().dAlong, dLast = aPoints.back().dAlong;
    return std::max(std::fabs(tOne.At(dFirst) - tOther.At(dFirst)),
                    std::fabs(tOne.At(dLast) - tOther.At(dLast)));
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

double Biweight(double dScaled) {
    const double u = dScaled / kBiweightReach, d = 1 - u * u;
    return d > 0 ? d * d : 0;
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
    RobustFit fit = {tStart, 0, std::vector<double>(aPoints.size())};
    fit.tLine.dOffset += Median(ResidualsOf(aPoints, fit.tLine));
    for (int nRound = 0; nRound < kRounds; ++nRound) {
        const std::vector<double> adResiduals = ResidualsOf(aPoints, fit.tLine);
        if (nRound < kScatterRounds)
            fit.dScatter = std::max(RobustScatter(adResiduals, 0), kLeastScatter);
        for (std::size_t i = 0; i < aPoints.size(); ++i)
            fit.adWeights[i] = aPoints[i].dTrust * Biweight(adResiduals[i] / fit.dScatter);
        const UncertainLine tBefore = fit.tLine;
        if (!FitOnce(aPoints, fit))
            return std::nullopt;
        if (nRound >= kScatterRounds && MoveOf(aPoints, tBefore, fit.tLine) < kSettled)
            break;
    }
    return fit;
}

bool FitOnce(std::span<const LinePoint> aPoints, RobustFit& fit) {
    const Sums t = SumsOf(aPoints, fit.adWeights);
    if (!(t.dWeight > 0) || !(t.dSquares > 0))
        return false;
    fit.tLine = {t.dAlong, t.dAcross, t.dProducts / t.dSquares};
    return true;
}

void AddVariances(std::span<const LinePoint> aPoints, RobustFit& fit) {
    const Sums t = SumsOf(aPoints, fit.adWeights);
    const double dVariance = PointVariance(aPoints, ResidualsOf(aPoints, fit.tLine), fit.dScatter, t.dWeight);
    fit.tLine.dOffsetVariance = dVariance / t.dWeight;
    fit.tLine.dSlopeVariance = dVariance / t.dSquares;
}

} // namespace tools

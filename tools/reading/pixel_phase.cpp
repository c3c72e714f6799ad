#include "reading/pixel_phase.h"

#include <cmath>
#include <numbers>

namespace tools {
namespace {

constexpr int kRounds = 2;       // a line's place tells the error, and without it the line's place changes
constexpr int kSweeps = 20;      // until the amplitudes stand
constexpr double kCertainty = 1; // centres' worth of belief that there is no error
constexpr double kShapeShare = 0.08; // of the error, by which its shape differs from three waves

// With one, two and three periods to a px: of the error at an edge, or how they show in a centre.
using Waves = std::array<double, 3>;

double Product(const Waves& a, const Waves& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// How the waves of both edges add up in the centres of a line.
std::vector<Waves> WavesOf(const LineCentres& t, const UncertainLine& tLine) {
    const double dTurn = std::numbers::pi * t.dWidthByLight;
    const Waves ad = {std::cos(dTurn), std::cos(2 * dTurn), std::cos(3 * dTurn)};
    std::vector<Waves> a;
    a.reserve(t.aCentres.size());
    for (const LinePoint& tCentre : t.aCentres) {
        const double dAngle = 2 * std::numbers::pi * tLine.At(tCentre.dAlong), dSine = std::sin(dAngle),
                     dCosine = std::cos(dAngle);
        a.push_back({ad[0] * dSine, ad[1] * 2 * dSine * dCosine, ad[2] * dSine * (3 - 4 * dSine * dSine)});
    }
    return a;
}

struct PhaseError {
    Waves adAmplitudes = {}, adUncertainties = {};
};

// By least squares over all centres.
PhaseError ErrorOf(std::span<const LineCentres> aLines, std::span<const std::vector<Waves>> aaWaves) {
    std::array<Waves, 3> aadProducts = {};
    Waves adDifferences = {};
    double dSquares = 0, dWeights = 0;
    for (std::size_t k = 0; k < aLines.size(); ++k)
        for (std::size_t i = 0; i < aaWaves[k].size(); ++i) {
            const double dDifference = aLines[k].aCentres[i].dAcross - aLines[k].adByLight[i];
            const double dWeight = aLines[k].tFit.adWeights[i];
            dSquares += dWeight * dDifference * dDifference;
            dWeights += dWeight;
            for (std::size_t n = 0; n < 3; ++n) {
                adDifferences[n] += dWeight * aaWaves[k][i][n] * dDifference;
                for (std::size_t m = 0; m < 3; ++m)
                    aadProducts[n][m] += dWeight * aaWaves[k][i][n] * aaWaves[k][i][m];
            }
        }
    PhaseError error;
    Waves& ad = error.adAmplitudes;
    for (int nSweep = 0; nSweep < kSweeps; ++nSweep)
        for (std::size_t n = 0; n < 3; ++n)
            ad[n] = (adDifferences[n] - Product(aadProducts[n], ad) + aadProducts[n][n] * ad[n]) /
                    (aadProducts[n][n] + kCertainty);
    const double dShape = kShapeShare * std::sqrt(Product(ad, ad));
    for (std::size_t n = 0; n < 3; ++n)
        error.adUncertainties[n] =
            std::hypot(dShape, std::sqrt(dSquares / dWeights / (aadProducts[n][n] + kCertainty)));
    return error;
}

std::vector<LinePoint> Freed(const LineCentres& t, std::span<const Waves> aWaves, const PhaseError& tError) {
    std::vector<LinePoint> a = t.aCentres;
    for (std::size_t i = 0; i < a.size(); ++i)
        a[i].dAcross -= Product(tError.adAmplitudes, aWaves[i]);
    return a;
}

// The line moves with each wave's amplitude as if the wave were its points.
void AddVariances(std::vector<LinePoint> aPoints, std::span<const Waves> aWaves, const Waves& adUncertainties,
                  RobustFit& fit) {
    RobustFit tMoved = fit;
    for (std::size_t n = 0; n < 3; ++n) {
        for (std::size_t i = 0; i < aPoints.size(); ++i)
            aPoints[i].dAcross = adUncertainties[n] * aWaves[i][n];
        FitOnce(aPoints, tMoved);
        const double dOffset = tMoved.tLine.At(fit.tLine.dMiddle), dSlope = tMoved.tLine.dSlope;
        fit.tLine.dOffsetVariance += dOffset * dOffset;
        fit.tLine.dCovariance += dOffset * dSlope;
        fit.tLine.dSlopeVariance += dSlope * dSlope;
    }
}

LineReading ReadingOf(const LineCentres& t, const RobustFit& tFit) {
    LineReading reading = t.tReading;
    reading.tLine = tFit.tLine;
    reading.dScatter = tFit.dScatter;
    for (std::size_t i = 0; i < t.aCentres.size(); ++i)
        if (tFit.adWeights[i] > 0)
            ++reading.nUsed;
        else
            reading.aLeftOut.push_back(t.aCentres[i]);
    return reading;
}

} // namespace

std::vector<LineReading> ReadingsOf(std::span<const LineCentres> aLines) {
    const std::size_t nLines = aLines.size();
    std::vector<RobustFit> aFits;
    for (const LineCentres& t : aLines)
        aFits.push_back(t.tFit);
    std::vector<std::vector<LinePoint>> aaFreed(nLines);
    std::vector<std::vector<Waves>> aaWaves(nLines);
    PhaseError tError;
    for (int nRound = 0; nRound < kRounds; ++nRound) {
        for (std::size_t n = 0; n < nLines; ++n)
            aaWaves[n] = WavesOf(aLines[n], aFits[n].tLine);
        tError = ErrorOf(aLines, aaWaves);
        for (std::size_t n = 0; n < nLines; ++n) {
            aaFreed[n] = Freed(aLines[n], aaWaves[n], tError);
            FitOnce(aaFreed[n], aFits[n]);
        }
    }
    std::vector<LineReading> a;
    for (std::size_t n = 0; n < nLines; ++n) {
        AddVariances(aaFreed[n], aFits[n]);
        AddVariances(aaFreed[n], aaWaves[n], tError.adUncertainties, aFits[n]);
        a.push_back(ReadingOf(aLines[n], aFits[n]));
    }
    return a;
}

} // namespace tools

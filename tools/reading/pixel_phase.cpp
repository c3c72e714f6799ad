#include "reading/pixel_phase.h"

#include <cmath>

namespace tools {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kSweeps = 20;       // until the amplitudes stand
constexpr double kCertainty = 1.0; // centres' worth of belief that there is no error, where no phase shows one

using Waves = std::array<double, 3>;

// How the waves of both edges' errors add up in the centre, for a line of some width.
Waves Shares(double dWidth) { return {std::cos(kPi * dWidth), std::cos(2 * kPi * dWidth), std::cos(3 * kPi * dWidth)}; }

Waves WavesAt(double dCentre, const Waves& adShares) {
    const double dSine = std::sin(2 * kPi * dCentre), dCosine = std::cos(2 * kPi * dCentre);
    return {adShares[0] * dSine, adShares[1] * 2 * dSine * dCosine, adShares[2] * dSine * (3 - 4 * dSine * dSine)};
}

double Product(const Waves& a, const Waves& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

} // namespace

PhaseError PhaseErrorOf(std::span<const LineCentres* const> apLines) {
    std::array<Waves, 3> aadProducts = {};
    Waves adDifferences = {};
    for (const LineCentres* const p : apLines) {
        const Waves adShares = Shares(p->dWidth);
        for (std::size_t i = 0; i < p->aCentres.size(); ++i) {
            const Waves adWaves = WavesAt(p->tFit.tLine.At(p->aCentres[i].dAlong), adShares);
            for (std::size_t n = 0; n < 3; ++n) {
                const double dWave = p->tFit.adWeights[i] * adWaves[n];
                adDifferences[n] += dWave * (p->aCentres[i].dAcross - p->adByLight[i]);
                for (std::size_t m = 0; m < 3; ++m)
                    aadProducts[n][m] += dWave * adWaves[m];
            }
        }
    }
    PhaseError t;
    for (int nSweep = 0; nSweep < kSweeps; ++nSweep)
        for (std::size_t n = 0; n < 3; ++n) {
            const double dOwn = aadProducts[n][n], dOthers = Product(aadProducts[n], t.adAmplitudes) - dOwn * t.adAmplitudes[n];
            t.adAmplitudes[n] = (adDifferences[n] - dOthers) / (dOwn + kCertainty);
        }
    return t;
}

LineReading ReadingOf(const LineCentres& t, const PhaseError& tError) {
    const Waves adShares = Shares(t.dWidth);
    std::vector<LinePoint> aCentres = t.aCentres;
    for (LinePoint& tCentre : aCentres)
        tCentre.dAcross -= Product(tError.adAmplitudes, WavesAt(t.tFit.tLine.At(tCentre.dAlong), adShares));
    RobustFit tFit = t.tFit;
    FitOnce(aCentres, tFit);
    AddVariances(aCentres, tFit);
    LineReading reading = {.tLine = tFit.tLine, .tAlong = t.tAlong, .dScatter = tFit.dScatter, .nLines = t.nLines,
                           .dWidth = t.dWidth, .dContrast = t.dContrast, .dLightStep = t.dLightStep, .aLeftOut = {}};
    for (std::size_t i = 0; i < aCentres.size(); ++i)
        if (tFit.adWeights[i] > 0)
            ++reading.nUsed;
        else
            reading.aLeftOut.push_back(aCentres[i]);
    return reading;
}

} // namespace tools

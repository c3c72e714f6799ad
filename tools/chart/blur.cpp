#include "chart/blur.h"

#include <algorithm>

namespace chart {

namespace {

// With more the three taps are no longer bell-shaped and few steps give a poor Gaussian.
constexpr double kMaxSideTap = 0.2;

// The kernel [side, centre, side], run nSteps times; each run adds a variance of 2 * side.
struct Taps {
    float fSide;
    float fCentre;
    int nSteps;
};

Taps TapsFor(double dSigma) {
    const double dVariance = dSigma * dSigma;
    const int nSteps = static_cast<int>(dVariance / (2 * kMaxSideTap)) + 1;
    const double dSide = dVariance / (2.0 * nSteps);
    return {static_cast<float>(dSide), static_cast<float>(1 - 2 * dSide), nSteps};
}

void BlurRow(float* pRow, int nWidth, const Taps& tTaps) {
    float fLeft = pRow[0];
    for (int x = 0; x < nWidth; ++x) {
        const float fHere = pRow[x];
        const float fRight = x + 1 < nWidth ? pRow[x + 1] : fHere;
        pRow[x] = tTaps.fCentre * fHere + tTaps.fSide * (fLeft + fRight);
        fLeft = fHere;
    }
}

// pAbove holds the row above as it was before this step, and this row's old state afterwards. pBelow may be
// the row itself.
void BlurDown(float* pRow, const float* pBelow, float* pAbove, int nWidth, const Taps& tTaps) {
    for (int x = 0; x < nWidth; ++x) {
        const float fHere = pRow[x];
        pRow[x] = tTaps.fCentre * fHere + tTaps.fSide * (pAbove[x] + pBelow[x]);
        pAbove[x] = fHere;
    }
}

void BlurAlongColumns(Plane& tPlane, std::vector<float>& aAbove, const Taps& tTaps) {
    float* pRow = tPlane.aGrey.data();
    std::copy_n(pRow, tPlane.nWidth, aAbove.data());
    for (int y = 0; y + 1 < tPlane.nHeight; ++y, pRow += tPlane.nWidth)
        BlurDown(pRow, pRow + tPlane.nWidth, aAbove.data(), tPlane.nWidth, tTaps);
    BlurDown(pRow, pRow, aAbove.data(), tPlane.nWidth, tTaps);
}

} // namespace

void Blur(Plane& tPlane, double dSigma) {
    if (tPlane.aGrey.empty() || !(dSigma > 0))
        return;
    const Taps tTaps = TapsFor(std::min(dSigma, kMaxBlurSigma));
    for (int y = 0; y < tPlane.nHeight; ++y)
        for (int nStep = 0; nStep < tTaps.nSteps; ++nStep)
            BlurRow(tPlane.aGrey.data() + static_cast<std::ptrdiff_t>(y) * tPlane.nWidth, tPlane.nWidth,
                    tTaps);
    std::vector<float> aAbove(static_cast<std::size_t>(tPlane.nWidth));
    for (int nStep = 0; nStep < tTaps.nSteps; ++nStep)
        BlurAlongColumns(tPlane, aAbove, tTaps);
}

} // namespace chart

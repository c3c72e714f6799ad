#include "chart/render.h"

#include "chart/blur.h"
#include "chart/noise.h"
#include "chart/scene.h"

#include <algorithm>
#include <cfloat>

namespace chart {

namespace {

static_assert(FLT_EVAL_METHOD == 0, "intermediate results in wider types would change the pictures' bytes");

// Where nStart + nLength ends within a picture side of nLimit pixels.
int EndWithin(int nStart, int nLength, int nLimit) {
    const std::int64_t nEnd = std::int64_t{nStart} + std::max(nLength, 0);
    return static_cast<int>(std::clamp<std::int64_t>(nEnd, 0, nLimit));
}

void Paint(Plane& tPlane, const Occlusion& tOcclusion) {
    const int nLeft = std::clamp(tOcclusion.nLeft, 0, tPlane.nWidth);
    const int nTop = std::clamp(tOcclusion.nTop, 0, tPlane.nHeight);
    const int nRight = EndWithin(tOcclusion.nLeft, tOcclusion.nWidth, tPlane.nWidth);
    const int nBottom = EndWithin(tOcclusion.nTop, tOcclusion.nHeight, tPlane.nHeight);
    for (int y = nTop; y < nBottom; ++y) {
        float* pRow = tPlane.aGrey.data() + static_cast<std::ptrdiff_t>(y) * tPlane.nWidth;
        std::fill(pRow + nLeft, pRow + nRight, static_cast<float>(tOcclusion.dGrey));
    }
}

void Vignette(Plane& tPlane, double dLoss) {
    const double dCentreX = (tPlane.nWidth - 1) / 2.0;
    const double dCentreY = (tPlane.nHeight - 1) / 2.0;
    const double dCornerSquare = dCentreX * dCentreX + dCentreY * dCentreY;
    if (dLoss == 0 || dCornerSquare == 0)
        return;
    float* pGrey = tPlane.aGrey.data();
    for (int y = 0; y < tPlane.nHeight; ++y)
        for (int x = 0; x < tPlane.nWidth; ++x, ++pGrey) {
            const double dX = x - dCentreX;
            const double dY = y - dCentreY;
            *pGrey *= static_cast<float>(1 - dLoss * ((dX * dX + dY * dY) / dCornerSquare));
        }
}

void Amplify(Plane& tPlane, double dGain) {
    const auto fGain = static_cast<float>(dGain);
    for (float& fGrey : tPlane.aGrey)
        fGrey *= fGain;
}

void AddNoise(Plane& tPlane, double dSigma, std::uint64_t nSeed) {
    if (dSigma == 0)
        return;
    const auto fSigma = static_cast<float>(dSigma);
    const Noise tNoise(nSeed);
    std::uint64_t nIndex = 0;
    for (float& fGrey : tPlane.aGrey)
        fGrey += fSigma * tNoise.At(nIndex++);
}

// Nearest grey level; the comparisons send NaN to black, so that the conversion is always defined.
std::uint8_t ToByte(float fGrey) {
    if (!(fGrey > 0))
        return 0;
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): at most 255, where the sum is exact enough
    return static_cast<std::uint8_t>(std::min(fGrey, 255.0f) + 0.5f);
}

std::vector<std::uint8_t> ToBytes(const Plane& tPlane) {
    std::vector<std::uint8_t> aBytes(tPlane.aGrey.size());
    std::transform(tPlane.aGrey.begin(), tPlane.aGrey.end(), aBytes.begin(), ToByte);
    return aBytes;
}

} // namespace

std::vector<std::uint8_t> Render(const Chart& tChart, const Camera& tCamera, const Pose& tPose,
                                 const Capture& tCapture) {
    Plane tPlane = RenderScene(tChart, tCamera, tPose);
    for (const Occlusion& tOcclusion : tCapture.aOcclusions)
        Paint(tPlane, tOcclusion);
    Vignette(tPlane, tCapture.dVignetting);
    Blur(tPlane, tCapture.dBlurSigma);
    Amplify(tPlane, tCapture.dGain);
    AddNoise(tPlane, tCapture.dNoiseSigma, tCapture.nSeed);
    return ToBytes(tPlane);
}

} // namespace chart

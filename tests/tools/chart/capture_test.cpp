#include "chart/blur.h"
#include "chart/pair.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace chart {
namespace {

using Bytes = std::vector<std::uint8_t>;

double Mean(const Bytes& a) {
    return std::accumulate(a.begin(), a.end(), 0.0) / static_cast<double>(a.size());
}

// Mean product of the two pictures' deviations from their means.
double Covariance(const Bytes& a, const Bytes& b) {
    const double dProducts = std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
    return dProducts / static_cast<double>(a.size()) - Mean(a) * Mean(b);
}

Chart Blank(double dGrey) {
    return {.dInk = dGrey, .dPaper = dGrey};
}

TEST(Blur, SpreadsAPointByItsVarianceAlongBothAxesAndMovesNothing) {
    constexpr int nSide = 61, nMiddle = 30;
    for (const double dSigma : {0.3, 0.63, 1.0, 2.5}) {
        Plane tPlane{nSide, nSide, std::vector<float>(nSide * nSide)};
        tPlane.aGrey[nMiddle * nSide + nMiddle] = 1;
        Blur(tPlane, dSigma);
        double dX = 0, dY = 0, dXX = 0, dYY = 0;
        for (int i = 0; i < nSide * nSide; ++i) {
            const double dGrey = tPlane.aGrey[static_cast<std::size_t>(i)];
            const int x = i % nSide - nMiddle, y = i / nSide - nMiddle;
            dX += dGrey * x, dY += dGrey * y, dXX += dGrey * x * x, dYY += dGrey * y * y;
        }
        EXPECT_NEAR(dX, 0, 1e-5);
        EXPECT_NEAR(dY, 0, 1e-5);
        EXPECT_NEAR(dXX, dSigma * dSigma, 1e-4);
        EXPECT_NEAR(dYY, dSigma * dSigma, 1e-4);
    }
}

TEST(Noise, IsUnbiasedOfTheAskedStrengthAndWithoutPattern) {
    PairSetup tSetup;
    tSetup.tChart = Blank(64);
    // The blur must not smooth the noise, nor the gain amplify it.
    tSetup.tMasterCapture = {.aOcclusions = {}, .dBlurSigma = 1, .dGain = 2, .dNoiseSigma = 3};
    tSetup.tSlaveCapture = tSetup.tMasterCapture;
    const Pair tPair = RenderPair(tSetup);
    tSetup.tMasterCapture.nSeed = 2;
    const Pair tOther = RenderPair(tSetup);
    const Bytes& a = tPair.tMaster.aGrey;
    EXPECT_NEAR(Mean(a), 128, 0.012);                 // five times 3 / sqrt(number of pixels)
    EXPECT_NEAR(Covariance(a, a), 9 + 1 / 12., 0.05); // rounding adds the variance of a uniform step
    EXPECT_NEAR(Covariance(a, tPair.tSlave.aGrey), 0, 0.04) << "the cameras of a pair";
    EXPECT_NEAR(Covariance(a, tOther.tMaster.aGrey), 0, 0.04) << "two seeds";
    for (const std::ptrdiff_t nShift : {1, 2, 1728, 1729}) {
        Bytes aShifted = a;
        std::rotate(aShifted.begin(), aShifted.begin() + nShift, aShifted.end());
        EXPECT_NEAR(Covariance(a, aShifted), 0, 0.04) << nShift;
    }
}

TEST(Capture, LightPassesOcclusionVignettingGainAndSensorInThisOrder) {
    Capture tCapture = {
        .aOcclusions = {{-3, -3, 5, 6, 50}, {9, 9, 2147483647, 2147483647, 300}, {5, 5, -1, 4, 0}},
        .dVignetting = 0.4,
        .dGain = 1.5};
    const Camera tCamera = ScaledTo(DefaultMaster(), 11, 11);
    const Bytes a = Render(Blank(100), tCamera, {}, tCapture);
    EXPECT_EQ(a[0], 45);          // an occlusion in the corner loses its share of light, too
    EXPECT_EQ(a[5 * 11], 120);    // half the corner's squared radius, half of its loss
    EXPECT_EQ(a[2 * 11 + 1], 60); // the occlusion's last pixel: 75 * (1 - 0.4 * 25 / 50)
    EXPECT_EQ(a[2 * 11 + 2], 128);
    EXPECT_EQ(a[3 * 11 + 1], 126);
    EXPECT_EQ(a[10 * 11 + 10], 255);
    tCapture.dBlurSigma = 1;
    EXPECT_GT(Render(Blank(100), tCamera, {}, tCapture)[2 * 11 + 1], 70) << "blurred after painting";
}

// Evenly grey light stays so: the border neither loses nor gains any.
TEST(Capture, AnySizeRendersAndNoPixelsGiveNoPicture) {
    const Capture tCapture = {.aOcclusions = {}, .dBlurSigma = 1.7};
    for (const auto& [nWidth, nHeight] : {std::pair{1, 1}, {1, 9}, {9, 1}, {2, 3}, {33, 17}, {4000, 3000}})
        EXPECT_EQ(Render(Blank(100), ScaledTo(DefaultMaster(), nWidth, nHeight), {9, -30, 30}, tCapture),
                  Bytes(static_cast<std::size_t>(nWidth * nHeight), 100));
    EXPECT_TRUE(Render({}, {0, 5, 1, 0, 0}, {}, tCapture).empty());
}

} // namespace
} // namespace chart

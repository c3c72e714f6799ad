// Whole studies: `make study`.
#include "support/plane.h"
#include "support/random.h"
#include "tools/reading/pairs.h"
#include "tools/reading/studies.h"

#include "reading/soundness.h"
#include "reading/uncertain_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>

using namespace tools;

namespace {

constexpr ChartMeasures kMeasures = {600, 186.75, 102.75};

Picture PictureOf(const support::Plane& t) {
    return {"plane", t.nColumns, t.nRows, t.aPixels};
}

// A chart of some size and roll, in the middle of a picture of its own shape.
Picture Chart(double dFocal, double dRoll, double dPaper = 200) {
    chart::Chart tChart;
    tChart.dPaper = dPaper;
    const chart::Camera tCamera = {864, 486, dFocal, 431.5, 242.5};
    const chart::Capture tCapture = {.aOcclusions = {}, .dBlurSigma = 0.8, .dNoiseSigma = 2};
    return {"chart", 864, 486, chart::Render(tChart, tCamera, {0.4, -0.3, dRoll}, tCapture)};
}

Picture Turned(const Picture& t) {
    Picture tTurned = {"turned", t.nRows, t.nColumns, std::vector<unsigned char>(t.aGrey.size())};
    for (int y = 0; y < t.nRows; ++y)
        for (int x = 0; x < t.nColumns; ++x)
            tTurned.aGrey[static_cast<std::size_t>(x * t.nRows + y)] =
                t.aGrey[static_cast<std::size_t>(y * t.nColumns + x)];
    return tTurned;
}

Picture Inverted(Picture picture) {
    std::ranges::transform(picture.aGrey, picture.aGrey.begin(),
                           [](unsigned char ub) { return static_cast<unsigned char>(255 - ub); });
    return picture;
}

} // namespace

TEST(RobustLine, ClaimsTheScatterThatItsFitsHave) {
    const struct {
        const char* szWhat;
        double dOutliers; // share of them, all to one side
        int nAlike;       // neighbours whose noise is averaged
    } aCases[] = {{"clean", 0, 1}, {"a third wrong", 0.33, 1}, {"neighbours err alike", 0, 5}};
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.szWhat);
        constexpr int nFits = 300, nPoints = 300;
        support::Random tRandom(7);
        double dSquares = 0, dClaimed = 0;
        for (int i = 0; i < nFits; ++i) {
            std::vector<double> adNoise;
            for (int n = 0; n < nPoints + t.nAlike; ++n)
                adNoise.push_back(tRandom.Real(-1, 1) + tRandom.Real(-1, 1) + tRandom.Real(-1, 1));
            std::vector<LinePoint> a;
            for (int n = 0; n < nPoints; ++n) {
                double d = 5 + 0.01 * n;
                for (int k = 0; k < t.nAlike; ++k)
                    d += 0.05 * adNoise[static_cast<std::size_t>(n + k)] / std::sqrt(t.nAlike);
                a.push_back(
                    {static_cast<double>(n), n < t.dOutliers * nPoints ? d + tRandom.Real(0.5, 3) : d});
            }
            RobustFit tFit = FitRobustly(a, RepeatedMedianLine(a)).value();
            AddVariances(a, tFit);
            dSquares += std::pow(tFit.tLine.At(nPoints) - (5 + 0.01 * nPoints), 2) / nFits;
            dClaimed += tFit.tLine.VarianceAt(nPoints) / nFits;
        }
        EXPECT_NEAR(std::sqrt(dClaimed / dSquares), 1, 0.12);
    }
}

// Every seventh pair: all noises, blurs and sizes.
TEST(SecondReading, HoldsTheTruthAndTheLibrarysFormulas) {
    double dScaled = 0;
    int nCovered = 0, nAngles = 0;
    for (unsigned int n = 0; n < 7 * 24; n += 7) {
        SCOPED_TRACE(n);
        const reading::StudyPair tPair = reading::PairOf(n, false);
        const reading::StudyResult t = reading::ResultOf(tPair);
        ASSERT_TRUE(t.tFirst.oSecondAngles);
        const std::array adTrue = {tPair.tTrue.dRx, tPair.tTrue.dRy, tPair.tTrue.dRz};
        for (std::size_t i = 0; i < 3; ++i, ++nAngles) {
            const double d = (t.tFirst.oSecondAngles->aRaw[i].dValue - adTrue[i]) /
                             std::sqrt(t.tFirst.oSecondAngles->aRaw[i].dVariance);
            dScaled += d * d;
            nCovered += std::fabs(d) < 1.96 ? 1 : 0;
        }
        if (!t.tFirst.tPair.oRaw)
            continue;
        EXPECT_NEAR(Rescaled({t.tFirst.tPair.oRaw->dRx, 0}).dValue, t.tFirst.tPair.oRescaled->dRx, 1e-12);
        EXPECT_NEAR(Rescaled({t.tFirst.tPair.oRaw->dRy, 0}).dValue, t.tFirst.tPair.oRescaled->dRy, 1e-12);
        CameraReading reading;
        for (std::size_t i = 0; i < 4; ++i)
            reading.aCorners[i].tPlace = *t.tFirst.tMaster.tMeasured.aoCorners[i];
        DeriveAngles(kMeasures, reading);
        EXPECT_NEAR(reading.tTiltX.dValue, *t.tFirst.tMaster.tMeasured.oTiltX, 1e-4)
            << "single precision in between";
        EXPECT_NEAR(reading.tTiltY.dValue, *t.tFirst.tMaster.tMeasured.oTiltY, 1e-4);
        EXPECT_TRUE(reading::ErrorOfFirst(t, tPair.tTrue) > 0.02 || t.aDoubts.empty());
    }
    EXPECT_NEAR(std::sqrt(dScaled / nAngles), 1, 0.25);
    EXPECT_GE(nCovered, 0.88 * nAngles);
}

TEST(SecondReading, DoubtsWhatDirtMisled) {
    int nWrong = 0;
    for (const unsigned int n : {22u, 49u, 74u, 84u, 105u, 118u, 142u, 143u}) {
        const reading::StudyPair tPair = reading::PairOf(n, true);
        const reading::StudyResult t = reading::ResultOf(tPair);
        nWrong += reading::ErrorOfFirst(t, tPair.tTrue) > 0.05 ? 1 : 0;
        EXPECT_FALSE(t.aDoubts.empty()) << n;
    }
    EXPECT_EQ(nWrong, 8) << "the pairs are chosen for it";
}

TEST(SecondReading, FindsTheFrameItselfOrSaysWhyNot) {
    const struct {
        const char* szWhat;
        Picture tPicture;
        std::optional<NoReading> oReason = {};
    } aCases[] = {
        {"plain", Chart(950, 0)},
        {"small", Chart(500, 2)},
        {"rolled", Chart(700, -15)},
        {"turned", Turned(Chart(950, 1)), NoReading::kFrameOnSide},
        {"inverted", Inverted(Chart(950, 0)), NoReading::kInverted},
        {"pale", Chart(950, 0, 55), NoReading::kNoContrast},
        {"blank", PictureOf(support::Plane(864, 486, 200)), NoReading::kNoContrast},
        {"dot", PictureOf(support::Plane(1, 1, 200)), NoReading::kNoContrast},
        {"cut", Chart(1450, 0), NoReading::kNoFrame},
        {"no cross",
         PictureOf(support::Plane(864, 486, 200).Fill(132, 80, 732, 410, 40).Fill(138, 86, 726, 404, 200)),
         NoReading::kNoCross},
        {"a side gone", PictureOf(support::UprightChart().Fill(260, 170, 300, 480, 200)),
         NoReading::kSideHidden},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.szWhat);
        const ReadingOutcome tOutcome = ReadCamera(t.tPicture, kMeasures);
        ASSERT_EQ(tOutcome.oReading.has_value(), !t.oReason);
        if (t.oReason) {
            EXPECT_EQ(tOutcome.tReason, *t.oReason);
            continue;
        }
        // Wherever it starts from, it reads the same.
        std::array<Point, 4> aStart;
        for (std::size_t i = 0; i < 4; ++i)
            aStart[i] = {tOutcome.oReading->aCorners[i].tPlace.dX + 3,
                         tOutcome.oReading->aCorners[i].tPlace.dY - 4};
        const ReadingOutcome tAgain = ReadCamera(t.tPicture, kMeasures, aStart);
        ASSERT_TRUE(tAgain.oReading);
        EXPECT_NEAR(tAgain.oReading->tTiltX.dValue, tOutcome.oReading->tTiltX.dValue,
                    0.3 * std::sqrt(tOutcome.oReading->tTiltX.dVariance));
        EXPECT_NEAR(tOutcome.oReading->tTiltX.dValue, 0.4, 0.01);
        EXPECT_NEAR(tOutcome.oReading->tTiltY.dValue, -0.3, 0.01);
    }
}

int main(int nArguments, char** pszArguments) {
    testing::InitGoogleTest(&nArguments, pszArguments);
    if (nArguments != 4)
        return RUN_ALL_TESTS();
    const auto nFirst = static_cast<unsigned int>(std::stoul(pszArguments[2]));
    const auto nPairs = static_cast<unsigned int>(std::stoul(pszArguments[3]));
    return std::strcmp(pszArguments[1], "--dirt") == 0 ? reading::StudyDirt(nFirst, nPairs)
                                                       : reading::StudyClean(nFirst, nPairs);
}

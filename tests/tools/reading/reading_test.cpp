// Whole studies: `make study`.
#include "chart/render.h"
#include "reading/words.h"
#include "support/plane.h"
#include "support/random.h"
#include "tools/reading/pairs.h"
#include "tools/reading/studies.h"

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

TEST(SecondReading, HoldsTheTruthAndDoubtsNothingClean) {
    std::array<unsigned int, 24> anPairs; // of all noises, blurs and sizes
    for (unsigned int n = 0; n < anPairs.size(); ++n)
        anPairs[n] = 7 * n;
    const reading::Findings t = reading::Study(anPairs, false);
    EXPECT_EQ(t.nRead, 24);
    EXPECT_GT(t.tRight.nPairs, 12);
    EXPECT_EQ(t.tRight.nDoubted, 0);
    EXPECT_NEAR(t.aAll[3].ScaledRms(), 1, 0.25);
    EXPECT_GE(t.aAll[3].Held(), 88);
    EXPECT_LT(t.aAll[3].Rms(), 0.005);
}

TEST(SecondReading, DoubtsWhatDirtMisled) {
    const std::array anPairs = {22u, 72u, 79u, 154u, 167u, 180u, 210u, 221u};
    const reading::Findings t = reading::Study(anPairs, true);
    EXPECT_EQ(t.tWrong.nPairs, 8) << "the pairs are chosen for it";
    EXPECT_EQ(t.tWrong.nDoubted, 8);
}

TEST(SecondReading, HasTheLibrarysFormulas) {
    const reading::StudyResult t = reading::ResultOf(reading::PairOf(7, false));
    const CameraMeasurement& tMeasured = t.tFirst.tMaster.tMeasured;
    CameraReading reading;
    for (std::size_t n = 0; n < 4; ++n)
        reading.aCorners[n].tPlace = *tMeasured.aoCorners[n];
    DeriveTilts(kMeasures, reading);
    EXPECT_NEAR(reading.tTiltX.dValue, *tMeasured.oTiltX, 1e-4) << "single precision in between";
    EXPECT_NEAR(reading.tTiltY.dValue, *tMeasured.oTiltY, 1e-4);
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
            const bool bNamed =
                DescribeMissing(tOutcome).find("the left side's upper half") != std::string::npos;
            EXPECT_EQ(bNamed, t.oReason == NoReading::kSideHidden);
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
    const bool bDirt = std::strcmp(pszArguments[1], "--dirt") == 0;
    const auto nFirst = static_cast<unsigned int>(std::stoul(pszArguments[2]));
    const auto nPairs = static_cast<unsigned int>(std::stoul(pszArguments[3]));
    return (bDirt ? reading::StudyDirt(nFirst, nPairs) : reading::StudyClean(nFirst, nPairs)) ? 0 : 1;
}

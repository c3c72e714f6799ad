#include "Orvex_Alignment_Stages.h"
#include "geometry/crossing.h"
#include "geometry/dark_run.h"
#include "support/plane.h"
#include "support/random.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace orvex;
using support::Plane;

namespace {

struct Cross {
    unsigned int nStatus;
    unsigned short uwCoarse[2];
    double dAngle;
    float afCentre[2];
    int nSpan;
};

constexpr double dUnset = -77.0;

unsigned int Pass(Plane& tGrey, Plane& tBinary, Cross* pCross, bool bRefine) {
    int aiPoints[4][2];
    double dAux = dUnset;
    DualCamAlign_BinaryImage(tGrey.Data(), tGrey.nColumns, tGrey.nRows, 0.6, aiPoints, tBinary.Data(), 0.45,
                             0.45, true, pCross->uwCoarse, bRefine);
    const unsigned int nStatus = DualCamAlign_CalculateIntersectionAndAngle(
        tBinary.Data(), tGrey.Data(), tGrey.nColumns, tGrey.nRows, &pCross->dAngle, pCross->afCentre,
        &pCross->nSpan, &dAux, &dAux, &dAux, 0.45, 0.45, true, pCross->uwCoarse, bRefine);
    EXPECT_EQ(dAux, dUnset);
    return nStatus;
}

Cross Measure(Plane& tGrey) {
    DualCamAlign_LoadParameters_ForAndroid();
    DualCamAlign_Initial();
    Plane tBinary(tGrey.nColumns, tGrey.nRows, 0);
    Cross t = {0, {9, 9}, dUnset, {0, 0}, 0};
    EXPECT_EQ(Pass(tGrey, tBinary, &t, false), 0u);
    t.nStatus = Pass(tGrey, tBinary, &t, true);
    return t;
}

} // namespace

TEST(Cross, UprightBarsGiveTheirMiddle) {
    Plane t(1728, 972, 200);
    t.Fill(860, 0, 869, 971, 0).Fill(0, 481, 1727, 490, 0);
    const Cross tCross = Measure(t);
    ASSERT_EQ(tCross.nStatus, 0u);
    EXPECT_EQ(tCross.uwCoarse[0], 860) << "the lowest of equally full columns";
    EXPECT_EQ(tCross.uwCoarse[1], 481);
    EXPECT_EQ(tCross.afCentre[0], 864.5f);
    EXPECT_EQ(tCross.afCentre[1], 485.5f);
    EXPECT_EQ(tCross.dAngle, 0.0);
    EXPECT_EQ(tCross.nSpan, 777) << "columns of the half-open window around column 860";
    EXPECT_EQ(m_tDualCamAlignData.afCrossCenterCopy_Master[0], 864.5f);
    EXPECT_EQ(m_tDualCamAlignData.afCrossCenterCopy_Slave[0], 0.0f);
}

TEST(BubbleSort, GivesWhatBubblePassesGive) {
    support::Random t(4);
    for (int nCount = 0; nCount < 300; ++nCount) {
        std::vector<double> adValues, adPasses;
        std::vector<unsigned short> auwIndex, auwPasses;
        for (int i = 0; i < nCount; ++i) { // many ties, and now and then a NaN
            adValues.push_back(nCount % 3 == 0 && t.Int(0, 9) == 0 ? std::nan("") : t.Int(-3, nCount / 4));
            auwIndex.push_back(static_cast<unsigned short>(i));
        }
        adPasses = adValues;
        auwPasses = auwIndex;
        for (int nLast = nCount - 1; nLast >= 1; --nLast)
            for (std::size_t j = 0; j < static_cast<std::size_t>(nLast); ++j)
                if (adPasses[j] < adPasses[j + 1]) {
                    std::swap(adPasses[j], adPasses[j + 1]);
                    std::swap(auwPasses[j], auwPasses[j + 1]);
                }
        bubblesort(adValues.data(), auwIndex.data(), nCount);
        EXPECT_EQ(auwIndex, auwPasses) << nCount;
    }
}

TEST(DarkRun, InterpolatesAtTheFullThresholdBeyondTheRange) {
    const auto Centre = [](std::vector<unsigned char> a, Range tRange, double dThreshold) {
        return DarkRunCentre({{a.data(), 1}, static_cast<int>(a.size())}, tRange, dThreshold);
    };
    // Leading edge 2 - 0.5, trailing edge 4 + 0.25.
    EXPECT_EQ(Centre({200, 150, 50, 50, 50, 250, 250}, {0, 6}, 100.0), (1.5 + 4.25) * 0.5);
    EXPECT_EQ(Centre({200, 150, 50, 50, 50, 250, 250}, {2, 4}, 100.0), (1.5 + 4.25) * 0.5);
    EXPECT_NEAR(*Centre({150, 101, 100, 150}, {0, 3}, 100.9), ((2 - 0.9) + (2 + 0.9 / 50)) * 0.5, 1e-12)
        << "dark up to the truncated threshold, edges at the full one";
    // At the picture's border and beside an equal pixel the edge stays at the whole pixel.
    EXPECT_EQ(Centre({50, 50, 150}, {0, 2}, 100.0), (0 + 1.5) * 0.5);
    EXPECT_EQ(Centre({50, 50, 50, 150}, {1, 3}, 100.0), (1 + 2.5) * 0.5);
    EXPECT_FALSE(Centre({200, 150}, {0, 1}, 100.0));
    EXPECT_FALSE(Centre({50, 50}, {1, 0}, 100.0));
}

TEST(Crossing, UprightBranchIsTheLimitOfTheGeneralOne) {
    const auto At = [](double dLean) {
        return CrossBars({{500.0, 480.0}, {1200.0, 487.0}}, {{300.0, 864.5}, {660.0, 864.5 + dLean}});
    };
    EXPECT_DOUBLE_EQ(At(0.0).dX, 864.5);
    EXPECT_NEAR(At(0.0).dY, 483.645, 1e-9);
    // Columns closer than a millionth of a pixel are rounding noise; the formula would lose the centre to it.
    EXPECT_EQ(At(1e-13).dY, At(0.0).dY);
    EXPECT_NEAR(At(1e-5).dY, At(0.0).dY, 1e-4);
}

#include "Orvex_Alignment_Stages.h"
#include "support/plane.h"
#include "support/random.h"

#include <cmath>
#include <gtest/gtest.h>

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

#include "Orvex_Alignment_Stages.h"
#include "support/get_align.h"
#include "support/random.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace support;

namespace {

#ifdef ORVEX_EMULATED // a measurement takes a multiple of the time
constexpr int nPairs = 20;
#else
constexpr int nPairs = 200;
#endif

// Largest and root mean square deviation from the truth.
struct Deviation {
    double dLargest = 0.0;
    double dSquares = 0.0;
    int nCount = 0;

    void Add(double d) {
        dLargest = std::max(dLargest, std::fabs(d));
        dSquares += d * d;
        ++nCount;
    }
    double Rms() const { return std::sqrt(dSquares / nCount); }
};

double Distance(const float* pf, const chart::Point& t) {
    return std::hypot(pf[0] - t.dX, pf[1] - t.dY);
}

void AddCorners(const float (&af)[ORVEX_CORNERS][2], const chart::Truth& t, Deviation* pt) {
    constexpr OrvexCorner aSlots[] = {ORVEX_LT, ORVEX_RT, ORVEX_LD, ORVEX_RD}; // in the truth's order
    for (std::size_t i = 0; i < t.aCorners.size(); ++i)
        pt->Add(Distance(af[aSlots[i]], t.aCorners[i]));
}

void Print(const char* szWhat, const Deviation& t) {
    std::printf("%-8s largest %.4f, RMS %.4f\n", szWhat, t.dLargest, t.Rms());
}

} // namespace

TEST(Accuracy, TwoHundredNoisyPairsComeOutAtTheirTruth) {
    Random tRandom(20);
    const auto Angle = [&] { return tRandom.Real(-1.5, 1.5); };
    Deviation tRx, tRy, tRz, tCorners, tCentres;
    for (int i = 0; i < nPairs; ++i) {
        const chart::Pose tMaster = {Angle() / 3, Angle() / 3, Angle() / 3};
        const chart::Pose tRelative = {Angle(), Angle(), Angle()};
        const chart::Pair t = NoisyPair(tMaster, tRelative, static_cast<std::uint64_t>(i));
        ASSERT_EQ(Align(t.tMaster, t.tSlave).nStatus, 0u) << "pair " << i;
        const DualCamAlignData& tData = m_tDualCamAlignData;
        tRx.Add(tData.dRx - tRelative.dRx);
        tRy.Add(tData.dRy - tRelative.dRy);
        tRz.Add(tData.dRz - tRelative.dRz);
        AddCorners(tData.afCornerPoint_Master, t.tMaster.tTruth, &tCorners);
        AddCorners(tData.afCornerPoint_Slave, t.tSlave.tTruth, &tCorners);
        tCentres.Add(Distance(tData.afCrossCenter_Master, t.tMaster.tTruth.tCentre));
        tCentres.Add(Distance(tData.afCrossCenter_Slave, t.tSlave.tTruth.tCentre));
    }
    Print("dRx/deg", tRx);
    Print("dRy/deg", tRy);
    Print("dRz/deg", tRz);
    Print("corner/px", tCorners);
    Print("centre/px", tCentres);
    EXPECT_LT(tRx.dLargest, 0.05);
    EXPECT_LT(tRy.dLargest, 0.05);
    EXPECT_LT(tRz.dLargest, 0.05);
    EXPECT_LT(tCorners.Rms(), 0.1);
    EXPECT_LT(tCentres.dLargest, 0.1);
}

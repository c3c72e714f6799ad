#include "Orvex_Alignment_Stages.h"
#include "support/get_align.h"
#include "support/random.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace support;

namespace {

// Pairs of all kinds: clean, noisy, covered, with a slave smaller or larger than the master, passing and
// failing.
chart::Pair VariedPair(unsigned int nPair) {
    Random t(nPair);
    chart::PairSetup tSetup;
    tSetup.tMasterPose = {t.Real(-1, 1), t.Real(-1, 1), t.Real(-1, 1)};
    tSetup.tRelativePose = {t.Real(-2, 2), t.Real(-2, 2), t.Real(-2, 2)};
    if (nPair % 5 == 4) {
        const int nColumns = t.Int(1200, 2100), nRows = t.Int(700, 1500);
        tSetup.tSlave = chart::ScaledTo(tSetup.tSlave, nColumns, nRows);
    }
    for (chart::Capture* const p : {&tSetup.tMasterCapture, &tSetup.tSlaveCapture}) {
        p->dBlurSigma = t.Real(0, 2);
        p->dNoiseSigma = t.Real(0, 6);
        p->dVignetting = t.Real(0, 0.4);
        p->nSeed = nPair;
        if (nPair % 2 == 1)
            p->aOcclusions = {{t.Int(0, 1500), t.Int(0, 900), t.Int(5, 300), t.Int(5, 300), 200.0}};
    }
    return chart::RenderPair(tSetup);
}

std::uint64_t AddedTo(std::uint64_t nHash, const void* pBytes, std::size_t nBytes) { // FNV-1a
    const auto* const p = static_cast<const unsigned char*>(pBytes);
    for (std::size_t i = 0; i < nBytes; ++i)
        nHash = (nHash ^ p[i]) * 0x100000001B3u;
    return nHash;
}

} // namespace

// Every bit of every measurement, as a second implementation of the measurement, in another language, found
// them. The angles are left out: the last bit of atan is the C library's own.
TEST(ExactBits, AreTheSameOnEveryMachine) {
    std::uint64_t nHash = 0xCBF29CE484222325u;
    int nMeasured = 0;
    for (unsigned int nPair = 0; nPair < 60; ++nPair) {
        const chart::Pair tPair = VariedPair(nPair);
        const unsigned int nStatus = Align(tPair.tMaster, tPair.tSlave).nStatus;
        nMeasured += nStatus == ORVEX_OK || nStatus == ORVEX_ANGLE_OUT_OF_RANGE;
        DualCamAlignData t;
        std::memcpy(&t, &m_tDualCamAlignData, sizeof t);
        t.dRx = t.dRy = t.dRz = t.dCrossAngle_Master = t.dCrossAngle_Slave = 0.0;
        t.dTiltX_Master = t.dTiltY_Master = t.dTiltX_Slave = t.dTiltY_Slave = 0.0;
        nHash = AddedTo(AddedTo(nHash, &nStatus, sizeof nStatus), &t, sizeof t);
    }
    EXPECT_EQ(nMeasured, 45) << "the others end in eight different statuses";
    EXPECT_EQ(nHash, 15983285502643168751u);
}

#include "Orvex_Alignment_Stages.h"
#include "support/checksum.h"
#include "support/get_align.h"
#include "support/repetitions.h"
#include "support/varied_pairs.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace support;

// Every bit of every measurement, as a second implementation of the measurement, in another language, found
// them. The angles are left out: the last bit of atan is the C library's own.
TEST(ExactBits, AreTheSameOnEveryMachine) {
    std::uint64_t nHash = nEmptyChecksum;
    int nMeasured = 0;
    constexpr unsigned int nPairs = Repetitions(60);
    for (unsigned int nPair = 0; nPair < nPairs; ++nPair) {
        const chart::Pair tPair = VariedPair(nPair);
        const unsigned int nStatus = Align(tPair.tMaster, tPair.tSlave).nStatus;
        nMeasured += nStatus == ORVEX_OK || nStatus == ORVEX_ANGLE_OUT_OF_RANGE;
        DualCamAlignData t;
        std::memcpy(&t, &m_tDualCamAlignData, sizeof t);
        t.dRx = t.dRy = t.dRz = t.dCrossAngle_Master = t.dCrossAngle_Slave = 0.0;
        t.dTiltX_Master = t.dTiltY_Master = t.dTiltX_Slave = t.dTiltY_Slave = 0.0;
        nHash = AddedTo(AddedTo(nHash, &nStatus, sizeof nStatus), &t, sizeof t);
    }
    const bool bAll = nPairs == 60;
    EXPECT_EQ(nMeasured, bAll ? 45 : 5) << "the others end in eight different statuses";
    EXPECT_EQ(nHash, bAll ? 15983285502643168751u : 10708947068948100617u);
}

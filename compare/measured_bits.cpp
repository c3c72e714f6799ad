// Measures pairs of all kinds and prints every bit of what came out in the lines of bit_lines.h; a case is a
// pair.
//
// PART OF [PAIRS]: of the pairs only the PARTth of every OF, from 0, so that several processes can share the
// work; PAIRS: how many rendered ones there are.
#include "Orvex_Alignment_Stages.h"
#include "compare/comparison.h"
#include "compare/measured_pair.h"
#include "support/failing_charts.h"
#include "support/varied_pairs.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <sstream>

using namespace support;

namespace {

// Pairs from nFirst on: each failing chart as master, then as slave, beside a good one.
bool PrintDrawnPair(const compare::BitLines& tLines, unsigned int nPair) {
    const Picture tGood = UprightChart(), tFailing = FailingCharts()[nPair / 2];
    const bool bMaster = nPair % 2 == 0;
    return compare::AddPair(tLines, "drawn", bMaster ? tFailing : tGood, bMaster ? tGood : tFailing);
}

bool PrintRenderedPair(const compare::BitLines& tLines, unsigned int nPair) {
    const chart::Pair t = VariedPair(nPair);
    return compare::AddPair(tLines, "rendered", t.tMaster, t.tSlave);
}

// Both planes of the working buffer, whose size is the larger picture's, as far as the latest picture fills
// them.
void AddPlanes(const compare::BitLines& tLines) {
    const DualCamAlignView& t = m_pCMainView;
    const auto nMaster =
        static_cast<std::size_t>(t.nWidth_Master) * static_cast<std::size_t>(t.nHeight_Master);
    const auto nSlave = static_cast<std::size_t>(t.nWidth_Slave) * static_cast<std::size_t>(t.nHeight_Slave);
    // The slave's first stage leaves its threshold; a run that ends with the master does not come so far.
    const bool bSlave = m_tDualCamAlignData.dBinaryThreshold_Slave != 0.0;
    tLines.Digest("grey_plane", t.pGreenBuffer, bSlave ? nSlave : nMaster);
    tLines.Digest("binary_plane", t.pGreenBuffer + std::max(nMaster, nSlave), bSlave ? nSlave : nMaster);
}

} // namespace

int main(int nArguments, char** pszArguments) {
    const auto Number = [&](int n, unsigned long nDefault) {
        return n < nArguments ? std::strtoul(pszArguments[n], nullptr, 10) : nDefault;
    };
    const unsigned long nPart = Number(1, 0), nParts = Number(2, 1);
    if (nPart >= nParts) {
        std::fprintf(stderr, "measured_bits: PART must be a number below OF, as in \"measured_bits 0 2\"\n");
        return 64;
    }
    const auto nRendered = static_cast<unsigned int>(Number(3, compare::nRenderedPairs));
    const auto nFailing = static_cast<unsigned int>(FailingCharts().size());
    for (unsigned long n = nPart; n < nRendered + 2 * nFailing; n += nParts) {
        const auto nPair = static_cast<unsigned int>(n);
        std::ostringstream tName;
        tName << std::setw(4) << std::setfill('0') << nPair;
        const compare::BitLines tLines(std::cout, tName.str());
        const bool bRecorded =
            nPair < nRendered ? PrintRenderedPair(tLines, nPair) : PrintDrawnPair(tLines, nPair - nRendered);
        tLines.AddParameters();
        AddPlanes(tLines);
        tLines.Elements("byte", "m_tTested", &m_tTested, sizeof m_tTested);
        if (bRecorded && std::cout.flush())
            continue;
        std::fprintf(stderr, "pair %04u: not written, or measured without the recorded atan\n", nPair);
        return 1;
    }
    return 0;
}

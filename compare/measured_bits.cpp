// Measures pairs of all kinds and prints every bit of what came out in the lines of bit_lines.h; a case is a
// pair.
//
// PART OF: of the pairs only the PARTth of every OF, from 0, so that several processes can share the work.
#include "Orvex_Alignment_Stages.h"
#include "compare/comparison.h"
#include "compare/measured_pair.h"
#include "support/failing_charts.h"
#include "support/varied_pairs.h"

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

} // namespace

int main(int nArguments, char** pszArguments) {
    const unsigned long nPart = nArguments == 3 ? std::strtoul(pszArguments[1], nullptr, 10) : 0;
    const unsigned long nParts = nArguments == 3 ? std::strtoul(pszArguments[2], nullptr, 10) : 1;
    if (nPart >= nParts) {
        std::fprintf(stderr, "measured_bits: PART must be a number below OF, as in \"measured_bits 0 2\"\n");
        return 64;
    }
    const unsigned int nRendered = compare::nRenderedPairs;
    const auto nFailing = static_cast<unsigned int>(FailingCharts().size());
    for (unsigned long n = nPart; n < nRendered + 2 * nFailing; n += nParts) {
        const auto nPair = static_cast<unsigned int>(n);
        std::ostringstream tName;
        tName << std::setw(3) << std::setfill('0') << nPair;
        const compare::BitLines tLines(std::cout, tName.str());
        const bool bRecorded =
            nPair < nRendered ? PrintRenderedPair(tLines, nPair) : PrintDrawnPair(tLines, nPair - nRendered);
        tLines.AddParameters();
        tLines.Elements("byte", "m_tTested", &m_tTested, sizeof m_tTested);
        if (bRecorded && std::cout.flush())
            continue;
        std::fprintf(stderr, "pair %03u: not written, or measured without the recorded atan\n", nPair);
        return 1;
    }
    return 0;
}

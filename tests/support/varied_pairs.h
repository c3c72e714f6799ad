#ifndef ORVEX_TESTS_SUPPORT_VARIED_PAIRS_H
#define ORVEX_TESTS_SUPPORT_VARIED_PAIRS_H

#include "chart/pair.h"
#include "support/random.h"

namespace support {

// Pairs of all kinds: clean, noisy, covered, with a slave smaller or larger than the master, passing and
// failing.
inline chart::Pair VariedPair(unsigned int nPair) {
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

} // namespace support

#endif

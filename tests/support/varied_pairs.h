#pragma once

#include "chart/pair.h"
#include "support/random.h"

namespace support {

// Pairs of all kinds: clean, noisy, covered, with a slave smaller or larger than the master, passing and
// failing. Behind the first ones, whose bits are on record, masters vary in size and angles leave the range.
inline chart::Pair VariedPair(unsigned int nPair) {
    Random t(nPair);
    const bool bOnRecord = nPair < 60;
    const double dRange = bOnRecord ? 2.0 : 3.2;
    chart::PairSetup tSetup;
    tSetup.tMasterPose = {t.Real(-1, 1), t.Real(-1, 1), t.Real(-1, 1)};
    tSetup.tRelativePose = {t.Real(-dRange, dRange), t.Real(-dRange, dRange), t.Real(-dRange, dRange)};
    if (nPair % 5 == 4) {
        const int nColumns = t.Int(1200, 2100), nRows = t.Int(700, 1500);
        tSetup.tSlave = chart::ScaledTo(tSetup.tSlave, nColumns, nRows);
    }
    if (!bOnRecord && nPair % 3 == 0) {
        const int nColumns = t.Int(1200, 2100), nRows = t.Int(700, 1500);
        tSetup.tMaster = chart::ScaledTo(tSetup.tMaster, nColumns, nRows);
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

#include "measuring/measurement.h"
#include "support/documented_status.h"
#include "support/failing_charts.h"
#include "support/get_align.h"
#include "support/random.h"

#include <bit>
#include <gtest/gtest.h>

namespace {

tools::Picture Named(const support::Picture& t) {
    return {"picture", t.nColumns, t.nRows, t.aPixels};
}

std::uint64_t BitsOf(double d) {
    return std::bit_cast<std::uint64_t>(d);
}

} // namespace

// Which writes the phone's record file too; the tool's way does not.
TEST(Measurement, IsWhatGetAlignReturns) {
    std::vector<std::pair<support::Picture, support::Picture>> aPairs;
    for (const double dAngle : {0.0, 0.7, -1.6, 2.9}) {
        const chart::Pair t = support::NoisyPair({0.3, -0.2, 0.1}, {dAngle, -dAngle, dAngle / 2}, 3);
        aPairs.emplace_back(t.tMaster, t.tSlave);
    }
    aPairs.emplace_back(aPairs[0].first, aPairs[0].first);
    for (const support::Plane& t : support::FailingCharts()) {
        aPairs.emplace_back(support::Picture(t), aPairs[0].second);
        aPairs.emplace_back(aPairs[0].first, support::Picture(t));
    }
    for (const auto& [tMaster, tSlave] : aPairs) {
        const support::AlignResult tReturned = support::Align(tMaster, tSlave);
        const tools::PairResult tPair = tools::Measure(Named(tMaster), Named(tSlave)).tPair;
        EXPECT_EQ(tPair.nStatus, tReturned.nStatus);
        const double dNone = support::AlignResult::dUntouched;
        const tools::Angles t = tPair.oRescaled.value_or(tools::Angles{dNone, dNone, dNone});
        EXPECT_EQ(BitsOf(t.dRx), BitsOf(tReturned.dRx)) << tReturned.nStatus;
        EXPECT_EQ(BitsOf(t.dRy), BitsOf(tReturned.dRy)) << tReturned.nStatus;
        EXPECT_EQ(BitsOf(t.dRz), BitsOf(tReturned.dRz)) << tReturned.nStatus;
    }
}

// Whatever a product's file may say, and without a trace in the next measurement.
TEST(Measurement, AnyParametersEndWithAKnownStatus) {
    const chart::Pair tPair = support::NoisyPair({0.3, -0.2, 0.1}, {0.5, -0.4, 0.3}, 3);
    const tools::Picture tMaster = Named(tPair.tMaster), tSlave = Named(tPair.tSlave);
    const double dUsual = tools::Measure(tMaster, tSlave).tPair.oRaw->dRx;
    support::Random tRandom(1);
    for (int nRound = 0; nRound < 60; ++nRound) {
        tools::MeasuringSetup setup;
        setup.strProduct = "any";
        for (const tools::Parameter& t : tools::ParameterTable()) {
            const double adAny[] = {t.dLowest, t.dHighest, tRandom.Real(t.dLowest, t.dHighest),
                                    std::min(t.dHighest, t.Get(setup.tParameters) * tRandom.Real(0.5, 2))};
            const double dAny = adAny[tRandom.Int(0, 3)];
            if (tRandom.Int(0, nRound % 8) == 0)
                t.Set(setup.tParameters, t.tKind == tools::ParameterKind::kNumber ? dAny : std::trunc(dAny));
        }
        EXPECT_TRUE(support::IsDocumented(tools::Measure(tMaster, tSlave, setup).tPair.nStatus)) << nRound;
    }
    EXPECT_EQ(BitsOf(tools::Measure(tMaster, tSlave).tPair.oRaw->dRx), BitsOf(dUsual));
}

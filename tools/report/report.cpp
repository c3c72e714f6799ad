#include "report/report.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tools {
namespace {

// A chart whose picture is spoiled as a whole leaves numbers behind that tell nothing of their own.
void KeepCauses(Camera tCamera, std::vector<Warning>& a) {
    const auto IsCause = [=](const Warning& t) { return t.oCamera == tCamera && t.nRank == 0 && t.bDoubt; };
    if (std::ranges::any_of(a, IsCause))
        std::erase_if(a, [&](const Warning& t) { return t.oCamera == tCamera && t.nRank > 0; });
}

CameraReport CameraReportOf(Camera tCamera, Picture tPicture, const CameraResult& tResult,
                            const Limits& limits, bool bMeasured) {
    const CameraTrust tTrust = TrustOf(tPicture, tResult, limits, bMeasured);
    return {tCamera, std::move(tPicture), tResult.tMeasured, tResult.tView, tResult.tReading, tTrust};
}

} // namespace

Report ReportOf(Picture tMaster, Picture tSlave, const Measurement& measurement,
                const MeasuringSetup& setup) {
    const Limits& limits = setup.tLimits;
    std::vector<Warning> aWarnings = WarningsOf({measurement, tMaster, tSlave, setup});
    const bool bMeasured = IsMeasured(measurement.tPair);
    CameraReport tOfMaster =
        CameraReportOf(Camera::kMaster, std::move(tMaster), measurement.tMaster, limits, bMeasured);
    CameraReport tOfSlave =
        CameraReportOf(Camera::kSlave, std::move(tSlave), measurement.tSlave, limits, bMeasured);
    for (const CameraReport* const p : {&tOfMaster, &tOfSlave}) {
        std::ranges::move(WarningsOf(p->tCamera, p->tTrust), std::back_inserter(aWarnings));
        if (!bMeasured)
            KeepCauses(p->tCamera, aWarnings);
    }
    std::ranges::stable_sort(aWarnings, {}, &Warning::nRank);
    const auto nDoubts = static_cast<std::size_t>(std::ranges::count(aWarnings, true, &Warning::bDoubt));
    const Verdict tVerdict = VerdictOf(measurement.tPair, limits, nDoubts);
    return {std::move(tOfMaster),
            std::move(tOfSlave),
            measurement.tPair,
            measurement.oSecondAngles,
            tVerdict,
            tVerdict.tVerdict.tExit,
            setup,
            std::move(aWarnings),
            {},
            {},
            {}};
}

std::vector<Comparison> ComparisonsOf(const Report& report) {
    if (!report.oTruth)
        return {};
    return Compare(QuantitiesOf(report.tPair.oRaw, report.tMaster.tMeasured, report.tSlave.tMeasured),
                   *report.oTruth);
}

} // namespace tools

#include "report/report.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tools {
namespace {

CameraReport CameraReportOf(Camera tCamera, Picture tPicture, const CameraResult& tResult) {
    const CameraTrust tTrust = TrustOf(tPicture, tResult);
    return {tCamera, std::move(tPicture), tResult.tMeasured, tResult.tView, tResult.tReading, tTrust};
}

} // namespace

Report ReportOf(Picture tMaster, Picture tSlave, const Measurement& measurement, double dMaxDifference) {
    std::vector<Warning> aWarnings = WarningsOf({measurement, tMaster, tSlave, dMaxDifference});
    CameraReport tOfMaster = CameraReportOf(Camera::kMaster, std::move(tMaster), measurement.tMaster),
                 tOfSlave = CameraReportOf(Camera::kSlave, std::move(tSlave), measurement.tSlave);
    for (const CameraReport* const p : {&tOfMaster, &tOfSlave})
        std::ranges::move(WarningsOf(p->tCamera, p->tTrust, IsMeasured(measurement.tPair)),
                          std::back_inserter(aWarnings));
    std::ranges::stable_sort(aWarnings, {}, &Warning::nRank);
    const auto nDoubts = static_cast<std::size_t>(std::ranges::count(aWarnings, true, &Warning::bDoubt));
    const Verdict tVerdict = VerdictOf(measurement.tPair, nDoubts);
    return {std::move(tOfMaster),
            std::move(tOfSlave),
            measurement.tPair,
            measurement.oSecondAngles,
            tVerdict,
            tVerdict.tVerdict.tExit,
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

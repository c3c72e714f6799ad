#include "report/report.h"

#include <utility>

namespace tools {
namespace {

CameraReport CameraReportOf(Camera tCamera, Picture tPicture, const CameraResult& tResult) {
    const CameraTrust tTrust = TrustOf(tPicture, tResult);
    return {tCamera, std::move(tPicture), tResult.tMeasured, tResult.tView, tTrust};
}

std::vector<Warning> WarningsOf(const CameraReport& tMaster, const CameraReport& tSlave) {
    std::vector<Warning> a = WarningsOf(tMaster.tCamera, tMaster.tTrust);
    for (Warning& tWarning : WarningsOf(tSlave.tCamera, tSlave.tTrust))
        a.push_back(std::move(tWarning));
    if (tMaster.tPicture.Size() != tSlave.tPicture.Size())
        a.push_back(SizeWarning(tMaster.tPicture.Size(), tSlave.tPicture.Size()));
    return a;
}

} // namespace

Report ReportOf(Picture tMaster, Picture tSlave, const Measurement& measurement) {
    Report report = {CameraReportOf(Camera::kMaster, std::move(tMaster), measurement.tMaster),
                     CameraReportOf(Camera::kSlave, std::move(tSlave), measurement.tSlave),
                     measurement.tPair,
                     VerdictOf(measurement.tPair),
                     {},
                     {},
                     {},
                     {}};
    report.aWarnings = WarningsOf(report.tMaster, report.tSlave);
    return report;
}

std::vector<Comparison> ComparisonsOf(const Report& report) {
    if (!report.oTruth)
        return {};
    return Compare(QuantitiesOf(report.tPair.oRaw, report.tMaster.tMeasured, report.tSlave.tMeasured),
                   *report.oTruth);
}

} // namespace tools

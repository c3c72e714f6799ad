#include "batch/columns.h"
#include "batch/summary.h"

namespace tools {
namespace {

Json JsonOf(const std::map<std::size_t, std::string>& tIds) {
    Json aIds = Json::array();
    for (const auto& [nLine, strId] : tIds)
        aIds.push_back(strId);
    return {{"count", aIds.size()}, {"ids", aIds}};
}

// A value that there are too few rows for is null.
Json JsonOf(const Spread& t) {
    return {{"count", t.nCount},
            {"mean", t.dMean},
            {"standard_deviation", t.dDeviation},
            {"minimum", t.dLowest},
            {"maximum", t.dHighest}};
}

Json JsonOf(const GaugeStudy& t, double dShare) {
    return {{"ids", t.nGroups},      {"rows_per_id", t.dPerGroup}, {"within", t.dWithin},
            {"between", t.dBetween}, {"total", t.dTotal},          {"share_percent", dShare}};
}

} // namespace

Json BatchSummary::AsJson(bool bRepeatability) const {
    Json tJson, tRaw, tDeviations, tStudies;
    for (const VerdictWords& tVerdict : kVerdicts) {
        const auto p = m_tIds.find(tVerdict.tKind);
        tJson["verdicts"][tVerdict.szKey] = JsonOf(p == m_tIds.end() ? Ids() : p->second);
    }
    tJson["measured_with_warnings"] = JsonOf(m_tWarned);
    tJson["warning_kinds"] = Json(m_tWarnings);
    tJson["not_measured_by_status"] = Json(m_tFailures);
    tJson["unfit_input_by_reason"] = Json(m_tUnfit);
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        tRaw[kAxes[i].szKey] = JsonOf(SpreadOf(m_aAxes[i].aRaw));
        tDeviations[kAxes[i].szKey] = JsonOf(SpreadOf(m_aAxes[i].aDeviations));
        const GaugeStudy tStudy = StudyOf(m_aAxes[i].tById);
        tStudies[kAxes[i].szKey] = JsonOf(tStudy, ShareOf(tStudy));
    }
    tJson["raw_deg"] = tRaw;
    tJson["raw_minus_truth_deg"] = tDeviations;
    tJson["least_margins"] = Json::object();
    for (const auto& [nColumn, tLeast] : m_tMargins)
        tJson["least_margins"][NumberColumns()[nColumn].strName] = {{"px", std::get<0>(tLeast)},
                                                                    {"id", std::get<2>(tLeast)}};
    if (bRepeatability)
        tJson["repeatability_deg"] = tStudies;
    return tJson;
}

} // namespace tools

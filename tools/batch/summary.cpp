#include "batch/summary.h"

#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "batch/columns.h"
#include "batch/reasons.h"
#include "measuring/verdict.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <set>

namespace tools {

const char kGaugeFormulae[] =
    "  within   repeatability, the equipment variation: pooled standard deviation within the ids,\n"
    "           sqrt( sum over all rows (angle - mean of its id)^2 / sum over all ids (rows of it - 1) )\n"
    "  between  sqrt( variance of the ids' means - within^2 / n ), 0 if that is negative;\n"
    "           n is the rows per id (their harmonic mean where they differ)\n"
    "  total    sqrt( within^2 + between^2 )\n"
    "  share    6 * within over the width of the raw angle's allowed range\n";

namespace {

using Cells = std::vector<std::string>;

constexpr int kDecimals = 4;

bool IsMargin(std::string_view strKey) {
    return strKey.ends_with("_margin_px") || strKey.ends_with("border_distance_px");
}

bool IsMeasured(VerdictKind tVerdict) {
    return tVerdict < VerdictKind::kNotMeasured;
}

std::string Number(double d, int nDecimals = kDecimals, const char* szNone = "-") {
    return std::isnan(d) ? szNone : Fixed(d, nDecimals);
}

// Each id once, in the list's order.
std::string IdsLine(const char* szLabel, const std::map<std::size_t, std::string>& tIds) {
    std::set<std::string> tNew;
    Cells aIds;
    for (const auto& [nLine, strId] : tIds)
        if (tNew.insert(strId).second)
            aIds.push_back(strId);
    const std::string strHead = fmt::format("  {:<25}   ", szLabel);
    return aIds.empty() ? "" : strHead + Wrapped(Listed(aIds), strHead.size()) + "\n";
}

// Empty where there are enough rows.
std::string NeedsOf(const GaugeStudy& t) {
    if (!std::isnan(t.dTotal))
        return "";
    return std::isnan(t.dWithin)
               ? "  within and share need at least two measured rows with one id, between and total "
                 "besides two ids\n"
               : "  between and total need measured rows of at least two ids\n";
}

Cells CellsOf(const char* szLabel, const Spread& t) {
    return {szLabel,           std::to_string(t.nCount), Number(t.dMean), Number(t.dDeviation),
            Number(t.dLowest), Number(t.dHighest)};
}

std::string Reasons(const std::string& strHeading, const std::map<std::string, std::size_t>& tReasons) {
    std::string str;
    for (const auto& [strReason, nCount] : tReasons) {
        const std::string strHead = fmt::format("  {} x ", nCount);
        str += strHead + Wrapped(strReason, strHead.size()) + "\n";
    }
    return str.empty() ? "" : "\n" + strHeading + "\n" + str;
}

} // namespace

double BatchSummary::ShareOf(const GaugeStudy& tStudy) const {
    return 100 * 6 * tStudy.dWithin / (2 * m_limits.Raw());
}

void BatchSummary::Add(const BatchItem& tItem, const BatchRow& tRow) {
    const ExitCode tExit = tRow.pVerdict->tExit;
    m_tIds[tRow.pVerdict->tKind][tItem.nLine] = tItem.strId;
    const std::vector<std::string> aReasons = ReasonsOf(tItem, tRow);
    Counts& tCounts = tExit == ExitCode::kNotMeasured ? m_tFailures
                      : tExit == ExitCode::kUnfitFile ? m_tUnfit
                                                      : m_tWarnings;
    for (const std::string& strReason : aReasons)
        ++tCounts[strReason];
    if (&tCounts == &m_tWarnings && !aReasons.empty())
        m_tWarned[tItem.nLine] = tItem.strId;
    for (std::size_t i = 0; i < tRow.aNumbers.size(); ++i)
        if (const std::optional<double> o = tRow.aNumbers[i]; o && IsMargin(NumberColumns()[i].strKey)) {
            const Least tLeast = {*o, tItem.nLine, tItem.strId}; // rows come in any order
            Least& t = m_tMargins.try_emplace(i, tLeast).first->second;
            t = std::min(t, tLeast);
        }
    for (std::size_t i = 0; i < m_aAxes.size(); ++i)
        if (const std::optional<double> oRaw = tRow.aNumbers[i]) {
            m_aAxes[i].aRaw.push_back(*oRaw);
            m_aAxes[i].tById[tItem.strId].push_back(*oRaw);
            if (tItem.oTruth)
                m_aAxes[i].aDeviations.push_back(*oRaw - (*tItem.oTruth).*kAxes[i].pAngle);
        }
}

std::string BatchSummary::WarningsText() const {
    Counts tTexts;
    for (const auto& [strKey, nCount] : m_tWarnings)
        tTexts[WordsOf(strKey, m_limits)] += nCount;
    return Reasons(std::to_string(m_tWarned.size()) +
                       (m_tWarned.size() == 1 ? " row measured with warnings: its"
                                              : " rows measured with warnings: their") +
                       " angles may be wrong",
                   tTexts);
}

std::string BatchSummary::CountsText() const {
    std::map<ExitCode, Ids> tIds;
    std::size_t nRows = 0;
    for (const auto& [tVerdict, tOfVerdict] : m_tIds) {
        tIds[DescribeVerdict(tVerdict).tExit].insert(tOfVerdict.begin(), tOfVerdict.end());
        nRows += tOfVerdict.size();
    }
    std::vector<Cells> aCounts = {{"rows", std::to_string(nRows)}};
    std::string strIds;
    for (const VerdictWords& tVerdict : kVerdicts)
        if (tVerdict.szLabel != nullptr) {
            aCounts.push_back({tVerdict.szLabel, std::to_string(tIds[tVerdict.tExit].size())});
            if (tVerdict.tKind != VerdictKind::kWithinRange)
                strIds += IdsLine(tVerdict.szLabel, tIds[tVerdict.tExit]);
        }
    strIds += IdsLine("measured with warnings", m_tWarned);
    return Table(aCounts) + (strIds.empty() ? "" : "\nIds, in the list's order\n" + strIds);
}

// What fails first where the next module sits a little differently.
std::string BatchSummary::MarginsText() const {
    std::vector<Cells> aRows = {{"", "px", "id"}};
    for (const auto& [nColumn, tLeast] : m_tMargins)
        aRows.push_back(
            {NumberColumns()[nColumn].strLabel, Fixed(std::get<0>(tLeast), 0), std::get<2>(tLeast)});
    return aRows.size() == 1 ? "" : "\nLeast margins\n" + Table(aRows);
}

std::string BatchSummary::Text() const {
    const Cells aHead = {"", "n", "mean", "std. dev.", "minimum", "maximum"};
    std::vector<Cells> aRaw = {aHead}, aDeviations = {aHead};
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        aRaw.push_back(CellsOf(kAxes[i].szLabel, SpreadOf(m_aAxes[i].aRaw)));
        aDeviations.push_back(CellsOf(kAxes[i].szLabel, SpreadOf(m_aAxes[i].aDeviations)));
    }
    std::string str = "Batch\n" + CountsText() + Reasons("Not measured, by status", m_tFailures) +
                      Reasons("Unreadable or unfit input, by reason", m_tUnfit) + WarningsText() +
                      "\nRaw angles, degrees (standard deviation with n - 1)\n" + Table(aRaw);
    if (!m_aAxes[0].aDeviations.empty())
        str += "\nRaw angles minus the list's truth, degrees\n" + Table(aDeviations);
    return str + MarginsText();
}

std::string BatchSummary::RepeatabilityText() const {
    std::vector<Cells> aRows = {{"", "ids", "rows per id", "within", "between", "total", "share"}};
    std::string strNeeds;
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        const GaugeStudy t = StudyOf(m_aAxes[i].tById);
        const auto Cell = [](double d, int nDecimals = kDecimals) { return Number(d, nDecimals, ""); };
        const double dShare = ShareOf(t);
        aRows.push_back({kAxes[i].szLabel, std::to_string(t.nGroups), Cell(t.dPerGroup, 1), Cell(t.dWithin),
                         Cell(t.dBetween), Cell(t.dTotal),
                         Cell(dShare, 1) + (std::isnan(dShare) ? "" : " %")});
        strNeeds = NeedsOf(t);
    }
    std::size_t nMeasured = 0;
    for (const auto& [tVerdict, tIds] : m_tIds)
        nMeasured += IsMeasured(tVerdict) ? tIds.size() : 0;
    return "\nRepeatability of the raw angles, degrees\n" + Table(aRows) + strNeeds + "  " +
           std::to_string(m_tWarned.size()) + " of " + std::to_string(nMeasured) +
           " measured rows carry warnings" +
           (m_tWarned.empty() ? "" : "; a wrong angle among them widens the figures above") + "\n" +
           kGaugeFormulae;
}

} // namespace tools

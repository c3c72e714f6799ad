#include "batch/summary.h"

#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "batch/columns.h"
#include "measuring/verdict.h"
#include "trust/warnings.h"

#include <algorithm>
#include <cmath>
#include <numeric>

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

// More are looked up in the rows.
constexpr std::size_t kIdsShown = 10;

// "slave camera, centre cross: no horizontal bar", with the status before it.
std::string FailureOf(const BatchRow& tRow) {
    const auto With = [](const std::string& str, const char* szBehind) {
        return str.empty() ? "" : str + szBehind;
    };
    return With(tRow.strStatus, " ") + With(tRow.strCamera, " camera, ") + With(tRow.strStage, ": ") +
           tRow.strWords;
}

// Without the row's own names, so that one reason is one text: the column stands for the file.
std::string ReasonOf(const BatchItem& tItem, const std::string& strWords) {
    const auto OfFile = [](const std::string& str) { return Harmless(str) + ": "; }; // as messages name it
    for (const auto& [strOwn, szCommon] :
         {std::pair(PlaceInList(tItem.nLine), "list: "), std::pair(OfFile(tItem.strMaster), "master: "),
          std::pair(OfFile(tItem.strSlave), "slave: ")})
        if (strWords.starts_with(strOwn))
            return szCommon + strWords.substr(strOwn.size());
    return strWords;
}

bool IsMargin(std::string_view strKey) {
    return strKey.ends_with("_margin_px") || strKey.ends_with("border_distance_px");
}

bool IsMeasured(VerdictKind tVerdict) {
    return tVerdict < VerdictKind::kNotMeasured;
}

std::string Number(double d) {
    return std::isnan(d) ? "-" : Fixed(d, kDecimals);
}

Cells CellsOf(const char* szLabel, const Spread& t) {
    return {szLabel,           std::to_string(t.nCount), Number(t.dMean), Number(t.dDeviation),
            Number(t.dLowest), Number(t.dHighest)};
}

std::string Reasons(const std::string& strHeading, const std::map<std::string, std::size_t>& tReasons) {
    std::string str;
    for (const auto& [strReason, nCount] : tReasons) {
        const std::string strHead = "  " + std::to_string(nCount) + " x ";
        str += strHead + Wrapped(strReason, strHead.size()) + "\n";
    }
    return str.empty() ? "" : "\n" + strHeading + "\n" + str;
}

} // namespace

void BatchSummary::Add(const BatchItem& tItem, const BatchRow& tRow) {
    const ExitCode tExit = tRow.pVerdict->tExit;
    ++m_tCounts[tRow.pVerdict->tKind];
    if (tExit == ExitCode::kNotMeasured)
        ++m_tFailures[FailureOf(tRow)];
    if (tExit == ExitCode::kUnfitFile)
        ++m_tUnfit[ReasonOf(tItem, tRow.strWords)];
    if (!tRow.aWarningKinds.empty() && IsMeasured(tRow.pVerdict->tKind)) {
        m_tWarned[tItem.nLine] = tItem.strId;
        for (const std::string& strKey : tRow.aWarningKinds)
            ++m_tWarnings[GeneralText(strKey, m_limits).value_or(strKey)];
    }
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
    Cells aIds;
    for (const auto& [nLine, strId] : m_tWarned)
        if (std::ranges::find(aIds, strId) == aIds.end() && aIds.size() <= kIdsShown)
            aIds.push_back(strId);
    return Reasons(std::to_string(m_tWarned.size()) +
                       (m_tWarned.size() == 1 ? " row measured with warnings: its"
                                              : " rows measured with warnings: their") +
                       " angles may be wrong" +
                       (aIds.size() > kIdsShown ? "" : " (id " + Harmless(Listed(aIds)) + ")"),
                   m_tWarnings);
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
    std::map<ExitCode, std::size_t> tCounts;
    std::size_t nRows = 0;
    for (const auto& [tVerdict, nCount] : m_tCounts) {
        tCounts[DescribeVerdict(tVerdict).tExit] += nCount;
        nRows += nCount;
    }
    std::vector<Cells> aCounts = {{"rows", std::to_string(nRows)}};
    for (const VerdictWords& tVerdict : kVerdicts)
        if (tVerdict.szLabel != nullptr)
            aCounts.push_back({tVerdict.szLabel, std::to_string(tCounts[tVerdict.tExit])});
    const Cells aHead = {"", "n", "mean", "std. dev.", "minimum", "maximum"};
    std::vector<Cells> aRaw = {aHead}, aDeviations = {aHead};
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        aRaw.push_back(CellsOf(kAxes[i].szLabel, SpreadOf(m_aAxes[i].aRaw)));
        aDeviations.push_back(CellsOf(kAxes[i].szLabel, SpreadOf(m_aAxes[i].aDeviations)));
    }
    std::string str = "Batch\n" + Table(aCounts) + Reasons("Not measured, by status", m_tFailures) +
                      Reasons("Unreadable or unfit input, by reason", m_tUnfit) + WarningsText() +
                      "\nRaw angles, degrees (standard deviation with n - 1)\n" + Table(aRaw);
    if (!m_aAxes[0].aDeviations.empty())
        str += "\nRaw angles minus the list's truth, degrees\n" + Table(aDeviations);
    return str + MarginsText();
}

std::string BatchSummary::RepeatabilityText() const {
    std::vector<Cells> aRows = {{"", "ids", "rows per id", "within", "between", "total", "share"}};
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        const GaugeStudy t = StudyOf(m_aAxes[i].tById);
        const double dShare = 100 * 6 * t.dWithin / (2 * m_limits.Raw());
        aRows.push_back({kAxes[i].szLabel, std::to_string(t.nGroups), Fixed(t.dPerGroup, 1),
                         Number(t.dWithin), Number(t.dBetween), Number(t.dTotal),
                         std::isnan(dShare) ? "-" : Fixed(dShare, 1) + " %"});
    }
    const auto nMeasured = std::accumulate(
        m_tCounts.begin(), m_tCounts.end(), std::size_t{0},
        [](std::size_t n, const auto& tCount) { return n + (IsMeasured(tCount.first) ? tCount.second : 0); });
    return "\nRepeatability of the raw angles, degrees\n" + Table(aRows) + "  " +
           std::to_string(m_tWarned.size()) + " of " + std::to_string(nMeasured) +
           " measured rows carry warnings" +
           (m_tWarned.empty() ? "" : "; a wrong angle among them widens the figures above") + "\n" +
           kGaugeFormulae;
}

} // namespace tools

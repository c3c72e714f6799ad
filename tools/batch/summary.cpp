#include "batch/summary.h"

#include "basics/harmless_text.h"
#include "basics/numbers.h"
#include "basics/text_table.h"
#include "batch/warning_kinds.h"
#include "measuring/verdict.h"

#include <algorithm>
#include <cmath>

namespace tools {

const char szGaugeFormulae[] =
    "  within   repeatability, the equipment variation: pooled standard deviation within the ids,\n"
    "           sqrt( sum over all rows (angle - mean of its id)^2 / sum over all ids (rows of it - 1) )\n"
    "  between  sqrt( variance of the ids' means - within^2 / n ), 0 if that is negative;\n"
    "           n is the rows per id (their harmonic mean where they differ)\n"
    "  total    sqrt( within^2 + between^2 )\n"
    "  share    6 * within over the width of the raw angle's allowed range\n";

namespace {

using Cells = std::vector<std::string>;

constexpr std::array<const char*, 3> aszLabels = {"Rx", "Ry", "Rz"};
constexpr std::array<const char*, 3> aszRawColumns = {"raw_rx_deg", "raw_ry_deg", "raw_rz_deg"};
constexpr std::array<double Angles::*, 3> apAngles = {&Angles::dRx, &Angles::dRy, &Angles::dRz};

constexpr int nDecimals = 4;

// More are looked up in the rows.
constexpr std::size_t nIdsShown = 10;

// A row that was read back from CSV holds texts only.
std::optional<double> NumberIn(const BatchRow& tRow, const char* szColumn) {
    const Json& t = tRow.at(szColumn);
    if (t.is_number())
        return t.get<double>();
    return t.is_string() ? ParsedNumber(t.get<std::string>()) : std::nullopt;
}

// The text and what follows it; nothing for none.
std::string TextIn(const BatchRow& tRow, const char* szColumn, const char* szBehind) {
    const Json& t = tRow.at(szColumn);
    return t.is_string() ? t.get<std::string>() + szBehind : "";
}

// Without the row's own names, so that one reason is one text: the column stands for the file.
std::string ReasonOf(const BatchItem& tItem, const BatchRow& tRow) {
    std::string strWords = TextIn(tRow, "words", "");
    const auto OfFile = [](const std::string& str) { return Harmless(str) + ": "; }; // as messages name it
    for (const auto& [strOwn, szCommon] :
         {std::pair(PlaceInList(tItem), "list: "), std::pair(OfFile(tItem.strMaster), "master: "),
          std::pair(OfFile(tItem.strSlave), "slave: "),
          std::pair(OfFile(tItem.strCalibration), "calibration: ")})
        if (strWords.starts_with(strOwn))
            return szCommon + strWords.substr(strOwn.size());
    return strWords;
}

std::string Number(double d) {
    return std::isnan(d) ? "-" : Fixed(d, nDecimals);
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
    const ExitCode tExit = ExitIn(tRow).value_or(kNotMeasured);
    m_tExit = std::max(m_tExit, tExit);
    ++m_tCounts[tExit];
    if (tExit == kNotMeasured)
        ++m_tFailures[TextIn(tRow, "status", " ") + TextIn(tRow, "camera", " camera, ") +
                      TextIn(tRow, "stage", ": ") + TextIn(tRow, "words", "")];
    if (tExit == kUnfitFile)
        ++m_tUnfit[ReasonOf(tItem, tRow)];
    if (const std::string str = TextIn(tRow, "warnings", ""); !str.empty() && tExit <= kOutOfRange) {
        m_tWarned[tItem.nLine] = tItem.strId;
        for (const std::string& strKind : WarningKinds(str))
            ++m_tWarnings[strKind];
    }
    for (std::size_t i = 0; i < m_aAxes.size(); ++i)
        if (const std::optional<double> oRaw = NumberIn(tRow, aszRawColumns[i])) {
            m_aAxes[i].aRaw.push_back(*oRaw);
            m_aAxes[i].tById[tItem.strId].push_back(*oRaw);
            if (tItem.oTruth)
                m_aAxes[i].aDeviations.push_back(*oRaw - (*tItem.oTruth).*apAngles[i]);
        }
}

std::size_t BatchSummary::CountOf(ExitCode tExit) const {
    const auto p = m_tCounts.find(tExit);
    return p == m_tCounts.end() ? 0 : p->second;
}

std::string BatchSummary::WarningsText() const {
    Cells aIds;
    for (const auto& [nLine, strId] : m_tWarned)
        if (std::ranges::find(aIds, strId) == aIds.end() && aIds.size() <= nIdsShown)
            aIds.push_back(strId);
    return Reasons(std::to_string(m_tWarned.size()) +
                       (m_tWarned.size() == 1 ? " row measured with warnings: its"
                                              : " rows measured with warnings: their") +
                       " angles may be wrong" +
                       (aIds.size() > nIdsShown ? "" : " (id " + Harmless(Listed(aIds)) + ")"),
                   m_tWarnings);
}

std::string BatchSummary::Text() const {
    std::size_t nRows = 0;
    for (const auto& [nExit, nCount] : m_tCounts)
        nRows += nCount;
    std::vector<Cells> aCounts = {{"rows", std::to_string(nRows)}};
    for (const auto& [szLabel, tExit] :
         {std::pair("within range", kWithinRange), std::pair("out of range", kOutOfRange),
          std::pair("not measured", kNotMeasured), std::pair("unreadable or unfit input", kUnfitFile)})
        aCounts.push_back({szLabel, std::to_string(CountOf(tExit))});
    const Cells aHead = {"", "n", "mean", "std. dev.", "minimum", "maximum"};
    std::vector<Cells> aRaw = {aHead}, aDeviations = {aHead};
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        aRaw.push_back(CellsOf(aszLabels[i], SpreadOf(m_aAxes[i].aRaw)));
        aDeviations.push_back(CellsOf(aszLabels[i], SpreadOf(m_aAxes[i].aDeviations)));
    }
    std::string str = "Batch\n" + Table(aCounts) + Reasons("Not measured, by status", m_tFailures) +
                      Reasons("Unreadable or unfit input, by reason", m_tUnfit) + WarningsText() +
                      "\nRaw angles, degrees (standard deviation with n - 1)\n" + Table(aRaw);
    if (!m_aAxes[0].aDeviations.empty())
        str += "\nRaw angles minus the list's truth, degrees\n" + Table(aDeviations);
    return str;
}

std::string BatchSummary::RepeatabilityText() const {
    std::vector<Cells> aRows = {{"", "ids", "rows per id", "within", "between", "total", "share"}};
    for (std::size_t i = 0; i < m_aAxes.size(); ++i) {
        const GaugeStudy t = StudyOf(m_aAxes[i].tById);
        const double dShare = 100 * 6 * t.dWithin / (2 * kRawLimit);
        aRows.push_back({aszLabels[i], std::to_string(t.nGroups), Fixed(t.dPerGroup, 1), Number(t.dWithin),
                         Number(t.dBetween), Number(t.dTotal),
                         std::isnan(dShare) ? "-" : Fixed(dShare, 1) + " %"});
    }
    return "\nRepeatability of the raw angles, degrees\n" + Table(aRows) + "  " +
           std::to_string(m_tWarned.size()) + " of " +
           std::to_string(CountOf(kWithinRange) + CountOf(kOutOfRange)) + " measured rows carry warnings" +
           (m_tWarned.empty() ? "" : "; a wrong angle among them widens the figures above") + "\n" +
           szGaugeFormulae;
}

} // namespace tools

#include "batch_report/rows.h"

#include "basics/text_table.h"
#include "basics/tool_error.h"
#include "batch/columns.h"
#include "batch/list_head.h"
#include "batch/reasons.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace tools {
namespace {

constexpr std::size_t kMostExamples = 60, kMostOfReason = 6, kMostGroups = 7;

std::size_t PlaceOfNumber(const std::string& strKey) {
    const auto p = std::ranges::find(NumberColumns(), strKey, &NumberColumn::strKey);
    return static_cast<std::size_t>(p - NumberColumns().begin());
}

std::map<std::string, std::size_t> Numbered(const std::vector<std::string>& aNames) {
    std::map<std::string, std::size_t> t;
    for (const std::string& str : aNames)
        t.emplace(str, t.size());
    return t;
}

} // namespace

void ReportRows::Add(std::size_t nRow, const BatchRow& tRow) {
    static const std::size_t kRaw = PlaceOfNumber("raw_deg/rx"),
                             kSecond = PlaceOfNumber("second_reading_deg/rx");
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    ReportRow& t = m_aRows[nRow];
    t.tVerdict = tRow.pVerdict->tKind;
    for (std::size_t i = 0; i < kAxes.size(); ++i) {
        t.adRaw[i] = tRow.aNumbers[kRaw + i].value_or(kNone);
        t.adDifferences[i] = t.adRaw[i] - tRow.aNumbers[kSecond + i].value_or(kNone);
    }
    for (const std::string& strReason : ReasonsOf(m_tList.aItems[nRow], tRow))
        if (const std::string* const p = &*m_aReasons.insert(strReason).first;
            std::ranges::find(t.aReasons, p) == t.aReasons.end()) // of three angles it is one
            t.aReasons.push_back(p);
}

std::vector<std::size_t> ReportRows::GravestFirst() const {
    std::vector<std::size_t> an(m_aRows.size());
    std::iota(an.begin(), an.end(), std::size_t{0});
    std::ranges::stable_sort(an, std::greater(), [this](std::size_t n) { return m_aRows[n].tVerdict; });
    return an;
}

std::vector<std::size_t> ReportRows::Examples() const {
    std::map<std::pair<VerdictKind, const std::string*>, std::size_t> tCounts;
    std::vector<std::size_t> an;
    for (const std::size_t n : GravestFirst()) {
        const ReportRow& t = m_aRows[n];
        const std::string* const pFirst = t.aReasons.empty() ? nullptr : t.aReasons.front();
        if (t.tVerdict != VerdictKind::kWithinRange && an.size() < kMostExamples &&
            ++tCounts[{t.tVerdict, pFirst}] <= kMostOfReason)
            an.push_back(n);
    }
    return an;
}

Grouping GroupingBy(const std::string& strColumn, const BatchList& tList) {
    const std::size_t nRows = tList.aItems.size();
    if (strColumn.empty())
        return {"", {""}, std::vector<std::size_t>(nRows)};
    const auto p = std::ranges::find_if(tList.aFurtherNames, [&](const std::string& str) {
        return IsSameColumn(str, strColumn) || IsSameColumn(str, "list_" + strColumn); // as the rows have it
    });
    if (p == tList.aFurtherNames.end())
        throw ToolError(tList.strFile, "has no column \"" + strColumn + "\" to colour the rows by",
                        tList.aFurtherNames.empty()
                            ? "Add it to the list"
                            : "Name one of its own columns: " + Listed(tList.aFurtherNames));
    const auto nColumn = static_cast<std::size_t>(p - tList.aFurtherNames.begin());
    std::map<std::string, std::size_t> tCounts;
    for (const BatchItem& tItem : tList.aItems)
        ++tCounts[tItem.aFurther[nColumn]];
    std::vector<std::pair<std::string, std::size_t>> aBySize(tCounts.begin(), tCounts.end());
    std::ranges::stable_sort(aBySize, std::greater(), &std::pair<std::string, std::size_t>::second);
    if (aBySize.size() > kMostGroups)
        aBySize.resize(kMostGroups - 1);
    Grouping t = {*p, {}, {}};
    for (const auto& [strName, nCount] : aBySize)
        t.aNames.push_back(strName);
    std::ranges::sort(t.aNames);
    const std::map<std::string, std::size_t> tPlaces = Numbered(t.aNames);
    if (t.aNames.size() < tCounts.size())
        t.aNames.emplace_back("(others)");
    for (const BatchItem& tItem : tList.aItems) {
        const auto pPlace = tPlaces.find(tItem.aFurther[nColumn]);
        t.anOf.push_back(pPlace == tPlaces.end() ? t.aNames.size() - 1 : pPlace->second);
    }
    std::ranges::replace(t.aNames, "", "(none)");
    return t;
}

} // namespace tools

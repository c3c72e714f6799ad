#pragma once

#include "batch/row.h"

#include <array>
#include <map>
#include <set>

namespace tools {

// A row as the page needs it; its names are in the list.
struct ReportRow {
    VerdictKind tVerdict = VerdictKind::kNoAnswer;
    std::array<double, 3> adRaw{}, adDifferences{}; // both readings', degrees; NaN where there is none
    std::vector<const std::string*> aReasons;
};

// All rows of a batch, short enough for a hundred thousand of them.
class ReportRows {
public:
    explicit ReportRows(const BatchList& tList) : m_tList(tList), m_aRows(tList.aItems.size()) {}

    void Add(std::size_t nRow, const BatchRow& tRow);

    const BatchList& List() const { return m_tList; }
    const std::vector<ReportRow>& All() const { return m_aRows; }
    const std::set<std::string>& Reasons() const { return m_aReasons; }

    // Places of the rows, the gravest verdicts first.
    std::vector<std::size_t> GravestFirst() const;

    // Those of them that people see first: a few of each reason.
    std::vector<std::size_t> Examples() const;

private:
    const BatchList& m_tList;
    std::vector<ReportRow> m_aRows; // as the list
    std::set<std::string> m_aReasons;
};

// The rows' groups by one of the list's columns.
struct Grouping {
    std::string strColumn;
    std::vector<std::string> aNames;
    std::vector<std::size_t> anOf; // of each row
};

// More groups than can be told apart by colours become one, the smallest ones. One group without a name for
// no column. Throws ToolError if the list has no such column.
Grouping GroupingBy(const std::string& strColumn, const BatchList& tList);

} // namespace tools

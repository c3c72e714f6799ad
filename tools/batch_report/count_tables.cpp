#include "batch_report/page_parts.h"

#include "basics/text_table.h"
#include "batch/reasons.h"
#include "batch/statistics.h"
#include "report/page_elements.h"

#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

using Cells = std::vector<std::string>;

// One row of counts, of all and of each group.
class Counts {
public:
    explicit Counts(std::size_t nGroups) : m_anOfGroup(nGroups) {}

    void Add(std::size_t nGroup) {
        ++m_nAll;
        ++m_anOfGroup[nGroup];
    }
    std::size_t All() const { return m_nAll; }

    Cells Row(const std::string& strName) const {
        Cells a = {strName, std::to_string(m_nAll)};
        for (const std::size_t n : m_anOfGroup)
            if (m_anOfGroup.size() > 1)
                a.push_back(std::to_string(n));
        return a;
    }

private:
    std::size_t m_nAll = 0;
    std::vector<std::size_t> m_anOfGroup;
};

Cells Head(const BatchReport& report) {
    Cells a = {"", "rows"};
    for (const std::string& str : report.tGroups.aNames)
        if (report.tGroups.aNames.size() > 1)
            a.push_back(report.tGroups.strColumn + " " + str);
    return a;
}

ReportTable ByVerdict(const BatchReport& report) {
    ReportTable table = {"By verdict", {Head(report)}};
    const std::size_t nGroups = report.tGroups.aNames.size();
    std::vector<Counts> aCounts(kVerdicts.size(), Counts(nGroups));
    Counts tAll(nGroups);
    for (std::size_t i = 0; i < report.tRows.All().size(); ++i) {
        tAll.Add(report.tGroups.anOf[i]);
        aCounts[static_cast<std::size_t>(report.tRows.All()[i].tVerdict)].Add(report.tGroups.anOf[i]);
    }
    for (const VerdictWords& t : kVerdicts)
        if (const Counts& tCounts = aCounts[static_cast<std::size_t>(t.tKind)]; tCounts.All() != 0)
            table.aRows.push_back(tCounts.Row(NameOf(t.tKind)));
    table.aRows.push_back(tAll.Row("all"));
    return table;
}

ReportTable ByReason(const BatchReport& report) {
    ReportTable table = {"By reason", {Head(report)}};
    std::map<std::string, Counts> tCounts;
    for (std::size_t i = 0; i < report.tRows.All().size(); ++i)
        for (const std::string* const p : report.tRows.All()[i].aReasons)
            tCounts.try_emplace(*p, report.tGroups.aNames.size()).first->second.Add(report.tGroups.anOf[i]);
    for (const auto& [strReason, t] : tCounts) {
        const std::string strWords = WordsOf(strReason, report.limits);
        table.aRows.push_back(
            t.Row(strWords == strReason ? strReason : fmt::format("{}: {}", strReason, strWords)));
    }
    return table;
}

// In the groups' order; of all rows where there are none.
ReportTable Spreads(const BatchReport& report) {
    const std::size_t nGroups = report.tGroups.aNames.size();
    ReportTable table = {"Raw angles, degrees: mean, and standard deviation with n - 1",
                         {{report.tGroups.strColumn}}};
    std::vector<Cells> aRows;
    for (const std::string& str : report.tGroups.aNames)
        aRows.push_back({report.tGroups.strColumn.empty() ? "all" : str});
    for (std::size_t nAxis = 0; nAxis < kAxes.size(); ++nAxis) {
        table.aRows[0].insert(table.aRows[0].end(), {std::string(kAxes[nAxis].szLabel) + " mean", "dev."});
        std::vector<std::vector<double>> aadValues(nGroups);
        for (std::size_t i = 0; i < report.tRows.All().size(); ++i)
            if (const double d = report.tRows.All()[i].adRaw[nAxis]; !std::isnan(d))
                aadValues[report.tGroups.anOf[i]].push_back(d);
        for (std::size_t i = 0; i < nGroups; ++i) {
            const Spread t = SpreadOf(aadValues[i]);
            for (const double d : {t.dMean, t.dDeviation})
                aRows[i].push_back(std::isnan(d) ? "-" : Fixed(d, 4));
        }
    }
    table.aRows.insert(table.aRows.end(), aRows.begin(), aRows.end());
    return table;
}

} // namespace

std::string CountTables(const BatchReport& report) {
    const ReportTable tReasons = ByReason(report);
    return "<div class=\"charts counts\">" + HtmlOf(ByVerdict(report)) + HtmlOf(Spreads(report)) +
           "</div>\n" +
           (tReasons.aRows.size() > 1 ? "<div class=\"reasons\">" + HtmlOf(tReasons) + "</div>\n" : "");
}

} // namespace tools

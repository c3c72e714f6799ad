#include "batch_report/charts.h"
#include "batch_report/page_parts.h"
#include "report/page_elements.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>

namespace tools {

std::string NameOf(VerdictKind tVerdict) {
    std::string str = DescribeVerdict(tVerdict).szKey;
    std::ranges::replace(str, '_', ' ');
    return str;
}

std::string HtmlOf(const BatchReport& report) {
    const std::vector<ReportRow>& aRows = report.tRows.All();
    std::string strCounts;
    for (const VerdictWords& t : kVerdicts)
        if (const auto n = std::ranges::count(aRows, t.tKind, &ReportRow::tVerdict); n != 0)
            strCounts += Element("span", fmt::format("{} {}", n, NameOf(t.tKind))) + "\n";
    const std::string strTitle =
        fmt::format("{} pairs of {}", aRows.size(),
                    std::filesystem::path(report.tRows.List().strFile).filename().string());
    const VerdictKind tGravest = std::ranges::max(aRows, {}, &ReportRow::tVerdict).tVerdict;
    return HtmlOf(PageParts{
        strTitle, DescribeVerdict(tGravest).szLook, Element("h1", strTitle) + "<p>" + strCounts + "</p>",
        CountTables(report) + VerdictChart(report) + ChartLegend(report) + RunCharts(report) +
            Histograms(report) + ExamplePairs(report) + RowTable(report),
        kBatchStyle, kBatchScript});
}

} // namespace tools

#include "batch_report/page_parts.h"

#include "basics/harmless_text.h"
#include "basics/json.h"
#include "basics/text_table.h"
#include "report/html_text.h"
#include "report/page_elements.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

constexpr int kDecimals = 4;

std::string Angle(double d) {
    return std::isnan(d) ? "-" : Fixed(d, kDecimals);
}

// For a script element: nothing in it can end that.
std::string DataOf(const Json& json) {
    std::string str;
    for (const char c : json.dump(kOneLine, ' ', true, Json::error_handler_t::replace))
        str += c == '<' ? "\\u003c" : std::string(1, c);
    return str;
}

Json Rounded(double d) {
    return std::isnan(d) ? Json() : Json(std::round(d * 1e4) / 1e4);
}

Json NamesOf(const BatchReport& report) {
    Json a = {"row", "id"};
    for (const std::string& str : report.tRows.List().aFurtherNames)
        a.push_back(Harmless(str));
    a.push_back("verdict");
    for (const char* const szBehind : {"", " less second reading"})
        for (const AxisName& tAxis : kAxes)
            a.push_back(std::string(tAxis.szLabel) + szBehind);
    a.push_back("reasons");
    return a;
}

// As the names, reasons by their places, and whether there is a page of the pair.
Json CellsOf(const BatchReport& report, const std::map<std::string, std::size_t>& tReasons,
             std::size_t nRow) {
    const BatchItem& tItem = report.tRows.List().aItems[nRow];
    const ReportRow& tRow = report.tRows.All()[nRow];
    Json a = {nRow + 1, Harmless(tItem.strId)}, aReasons = Json::array();
    for (const std::string& str : tItem.aFurther)
        a.push_back(Harmless(str));
    a.push_back(static_cast<std::size_t>(tRow.tVerdict));
    for (const auto& ad : {tRow.adRaw, tRow.adDifferences})
        for (const double d : ad)
            a.push_back(Rounded(d));
    for (const std::string* const p : tRow.aReasons)
        aReasons.push_back(tReasons.at(*p));
    a.push_back(aReasons);
    const auto pShown = report.tShown.find(nRow);
    a.push_back(pShown != report.tShown.end() && pShown->second.bReport ? 1 : 0);
    return a;
}

std::string Card(const BatchReport& report, std::size_t nRow) {
    const BatchItem& tItem = report.tRows.List().aItems[nRow];
    const ReportRow& tRow = report.tRows.All()[nRow];
    const auto pShown = report.tShown.find(nRow);
    const ShownPair tShown = pShown != report.tShown.end() ? pShown->second : ShownPair();
    std::string str;
    if (!tShown.strThumbnail.empty())
        str += fmt::format("<img alt=\"master and slave\" src=\"{}\">", Escaped(tShown.strThumbnail));
    str += Element("b", tItem.strId) +
           Element("span class=\"verdict\"", fmt::format("row {}, {}", nRow + 1, NameOf(tRow.tVerdict)));
    if (!std::isnan(tRow.adRaw[0]))
        str += Element("span", fmt::format("Rx {}, Ry {}, Rz {}", Angle(tRow.adRaw[0]), Angle(tRow.adRaw[1]),
                                           Angle(tRow.adRaw[2])));
    for (const std::string* const p : tRow.aReasons)
        str += Element("small", *p);
    return tShown.bReport
               ? fmt::format("<a class=\"card {}\" href=\"{}/{}\">{}</a>\n",
                             DescribeVerdict(tRow.tVerdict).szKey, Escaped(report.strReports), PageName(nRow),
                             str)
               : fmt::format("<div class=\"card {}\">{}</div>\n", DescribeVerdict(tRow.tVerdict).szKey, str);
}

} // namespace

std::string PageName(std::size_t nRow) {
    return fmt::format("row-{:05}.html", nRow + 1);
}

std::string ExamplePairs(const BatchReport& report) {
    std::string str;
    for (const std::size_t nRow : report.tRows.Examples())
        str += Card(report, nRow);
    return str.empty() ? ""
                       : Section("Failing and doubtful pairs, a few of each reason",
                                 "<div class=\"cards\">\n" + str + "</div>");
}

// Row by row: the whole as values would take many times its text's room.
std::string RowTable(const BatchReport& report) {
    std::map<std::string, std::size_t> tReasons;
    Json aReasons = Json::array(), aVerdicts = Json::array();
    for (const std::string& str : report.tRows.Reasons()) {
        tReasons.emplace(str, tReasons.size());
        aReasons.push_back(Harmless(str));
    }
    for (const VerdictWords& t : kVerdicts)
        aVerdicts.push_back(NameOf(t.tKind));
    std::string strRows;
    for (const std::size_t nRow : report.tRows.GravestFirst())
        strRows += (strRows.empty() ? "\n" : ",\n") + DataOf(CellsOf(report, tReasons, nRow));
    return Section(
               "All rows, the gravest first",
               "<p><input type=\"search\" id=\"filter\" placeholder=\"filter: words, or column=value\" "
               "aria-label=\"filter\"> <output id=\"told\">The table needs the page's script; the rows are "
               "in the batch's results, too.</output></p>"
               "<div class=\"wide\"><table id=\"all\"><thead></thead><tbody></tbody></table></div>"
               "<button id=\"more\" hidden>more rows</button>") +
           fmt::format(
               "<script type=\"application/json\" id=\"data\">{{\"names\":{},\"verdicts\":{},\"reasons\":{},"
               "\"folder\":{},\"rows\":[{}]}}</script>\n",
               DataOf(NamesOf(report)), DataOf(aVerdicts), DataOf(aReasons), DataOf(report.strReports),
               strRows);
}

} // namespace tools

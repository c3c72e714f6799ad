#include "report/outputs.h"

#include "basics/text_table.h"
#include "measuring/versions.h"
#include "report/html_text.h"
#include "report/page_parts.h"
#include "report/shapes.h"
#include "report/tables.h"

#include <fmt/format.h>

namespace tools {
namespace {

std::string Element(const std::string& strTag, const std::string& strText) {
    return fmt::format("<{}>{}</{}>", strTag, Escaped(strText), strTag.substr(0, strTag.find(' ')));
}

std::string Section(const std::string& strHeading, const std::string& strBody, const char* szClass = "") {
    return fmt::format("<section class=\"{}\">{}{}</section>\n", szClass, Element("h2", strHeading), strBody);
}

std::string HtmlOf(const std::vector<Fact>& aFacts) {
    std::string str = "<dl>";
    for (const Fact& t : aFacts)
        str += Element("dt", t.szLabel) + Element("dd", t.strText);
    return str + "</dl>";
}

std::string Row(const std::vector<std::string>& aCells, const char* szTag) {
    std::string str = "<tr>" + Element("th", aCells.front());
    for (std::size_t i = 1; i < aCells.size(); ++i)
        str += Element(szTag, aCells[i]);
    return str + "</tr>\n";
}

std::string HtmlOf(const ReportTable& table) {
    std::string str = "<table><thead>" + Row(table.aRows.front(), "th") + "</thead><tbody>\n";
    for (std::size_t i = 1; i < table.aRows.size(); ++i)
        str += Row(table.aRows[i], "td");
    return Section(table.strHeading, str + "</tbody></table>");
}

std::string HtmlOf(const ReportList& list, const char* szClass) {
    std::string str = "<ul>";
    for (const std::string& strLine : list.aLines)
        str += Element("li", strLine);
    return Section(list.szHeading, str + "</ul>", szClass);
}

std::string Legend() {
    std::string str = "<section class=\"legend\">";
    for (const ShapeKind& kind : kShapeKinds)
        str +=
            fmt::format(R"(<label class="{0}"><input type="checkbox" checked value="{0}"><i></i>{1}</label>)"
                        "\n",
                        kind.szKey, Escaped(kind.szWords));
    return str + "</section>\n";
}

std::string Buttons(const CameraMeasurement& measured) {
    std::string str = "<div class=\"tools\"><button data-zoom=\"0.5\" title=\"zoom in; the mouse wheel does "
                      "so too\">+</button><button data-zoom=\"2\" title=\"zoom out\">\u2212</button>"
                      "<button>whole picture</button>";
    for (const Mark& mark : MarksOf(measured))
        str += fmt::format(R"(<button data-x="{}" data-y="{}" title="zoom to it">{}</button>)",
                           Fixed(mark.tPoint.dX, 4), Fixed(mark.tPoint.dY, 4), Escaped(mark.strLabel));
    return str + "</div>\n";
}

// How far the measurement came in this picture.
std::string StateOf(const CameraReport& tCamera, const Report& report) {
    const StatusWords& tStatus = report.tVerdict.tStatus;
    if (report.tPair.oFailedCamera == tCamera.tCamera)
        return Element("span class=\"stopped\"", std::string("stopped at ") +
                                                     DescribeStage(tStatus.tStage).szName + ": " +
                                                     tStatus.szFound);
    return Escaped(tCamera.tMeasured.WasBegun() ? "measured" : "not begun");
}

std::string Figure(const CameraReport& camera, const Report& report) {
    return fmt::format("<figure><figcaption>{} {}, {}</figcaption>\n{}{}</figure>\n",
                       Element("b", NameOf(camera.tCamera)), Escaped(camera.tPicture.strFile),
                       StateOf(camera, report), SvgOf(camera), Buttons(camera.tMeasured));
}

std::string Numbers(const Report& report) {
    std::string strWarnings, strTables, strLists;
    for (const ReportTable& tTable : TablesOf(report))
        strTables += HtmlOf(tTable);
    for (const ReportList& tList : ListsOf(report))
        (tList.bWarning ? strWarnings : strLists) += HtmlOf(tList, tList.bWarning ? "warnings" : "");
    return strWarnings + Section("Result", HtmlOf(FactsOf(report))) + strTables + strLists;
}

// The policy lets a browser load nothing from anywhere.
std::string Head(const Report& report) {
    return std::string("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                       "img-src data:; style-src 'unsafe-inline'; script-src 'unsafe-inline'\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n") +
           Element("title", report.tVerdict.strHeadline) + "\n<style>" + kReportStyle + "</style>\n</head>\n";
}

} // namespace

std::string HtmlOf(const Report& report) {
    return fmt::format("{}<body>\n<header class=\"{}\">{}</header>\n<main>\n<div class=\"column pictures\">\n"
                       "{}{}{}</div>\n<div class=\"column\">\n{}</div>\n</main>\n"
                       "<footer>orvex-align {}, libOrvex_Alignment {}</footer>\n"
                       "<script>{}</script>\n</body>\n</html>\n",
                       Head(report), report.tVerdict.tVerdict.szLook,
                       Element("h1", report.tVerdict.strHeadline), Legend(), Figure(report.tMaster, report),
                       Figure(report.tSlave, report), Numbers(report), kToolVersion,
                       Escaped(LibraryVersion()), kReportScript);
}

} // namespace tools

#include "report/page.h"

#include "basics/text_table.h"
#include "measuring/versions.h"
#include "report/html_text.h"
#include "report/page_style.h"
#include "report/shapes.h"
#include "report/tables.h"

namespace tools {
namespace {

std::string Element(const std::string& strTag, const std::string& strText) {
    return "<" + strTag + ">" + Escaped(strText) + "</" + strTag.substr(0, strTag.find(' ')) + ">";
}

std::string Section(const std::string& strHeading, const std::string& strBody, const char* szClass = "") {
    return std::string("<section class=\"") + szClass + "\">" + Element("h2", strHeading) + strBody +
           "</section>\n";
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
    for (const ShapeKind& t : kShapeKinds)
        str += std::string("<label class=\"") + t.szKey + "\"><input type=\"checkbox\" checked value=\"" +
               t.szKey + "\"><i></i>" + Escaped(t.szWords) + "</label>\n";
    return str + "</section>\n";
}

std::string Buttons(const CameraMeasurement& measured) {
    std::string str = "<div class=\"tools\"><button data-zoom=\"0.5\" title=\"zoom in; the mouse wheel does "
                      "so too\">+</button><button data-zoom=\"2\" title=\"zoom out\">\u2212</button>"
                      "<button>whole picture</button>";
    for (const Mark& tMark : MarksOf(measured))
        str += "<button data-x=\"" + Fixed(tMark.tPoint.dX, 4) + "\" data-y=\"" + Fixed(tMark.tPoint.dY, 4) +
               "\" title=\"zoom to it\">" + Escaped(tMark.strLabel) + "</button>";
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

std::string Figure(const CameraReport& tCamera, const Report& report) {
    return "<figure><figcaption>" + Element("b", NameOf(tCamera.tCamera)) + " " +
           Escaped(tCamera.tPicture.strFile) + ", " + StateOf(tCamera, report) + "</figcaption>\n" +
           SvgOf(tCamera) + Buttons(tCamera.tMeasured) + "</figure>\n";
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
    return Head(report) + "<body>\n<header class=\"" + report.tVerdict.tVerdict.szLook + "\">" +
           Element("h1", report.tVerdict.strHeadline) +
           "</header>\n<main>\n<div class=\"column pictures\">\n" + Legend() +
           Figure(report.tMaster, report) + Figure(report.tSlave, report) +
           "</div>\n<div class=\"column\">\n" + Numbers(report) + "</div>\n</main>\n<footer>" +
           Escaped(std::string("orvex-align ") + kToolVersion + ", libOrvex_Alignment " + LibraryVersion()) +
           "</footer>\n<script>" + kReportScript + "</script>\n</body>\n</html>\n";
}

} // namespace tools

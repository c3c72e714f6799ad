#include "report/outputs.h"

#include "basics/text_table.h"
#include "measuring/versions.h"
#include "report/html_text.h"
#include "report/page_parts.h"
#include "report/reading_shapes.h"
#include "report/shapes.h"
#include "report/tables.h"

#include <algorithm>
#include <chrono>
#include <fmt/chrono.h>
#include <fmt/format.h>

namespace tools {
namespace {

std::string Element(const std::string& strTag, const std::string& strText) {
    return fmt::format("<{}>{}</{}>", strTag, Escaped(strText), strTag.substr(0, strTag.find(' ')));
}

std::string Section(const std::string& strHeading, const std::string& strBody) {
    return fmt::format("<section>{}{}</section>\n", Element("h2", strHeading), strBody);
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
        str += Element(aCells[i].ends_with(kBeyond) ? "td class=\"beyond\"" : szTag, aCells[i]);
    return str + "</tr>\n";
}

std::string HtmlOf(const ReportTable& table) {
    std::string str = "<table><thead>" + Row(table.aRows.front(), "th") + "</thead><tbody>\n";
    for (std::size_t i = 1; i < table.aRows.size(); ++i)
        str += Row(table.aRows[i], "td");
    return Section(table.strHeading, str + "</tbody></table>");
}

std::string HtmlOf(const ReportList& list) {
    std::string str = "<ul>";
    for (const std::string& strLine : list.aLines)
        str += Element("li", strLine);
    return Section(list.szHeading, str + "</ul>");
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
    std::string str = "<div class=\"tools\"><button data-zoom=\"0.5\" title=\"zoom in; so does the mouse "
                      "wheel with Ctrl, or after a click into the picture\">+</button><button "
                      "data-zoom=\"2\" title=\"zoom out\">\u2212</button>"
                      "<button>whole picture</button>";
    for (const Mark& mark : MarksOf(measured))
        str += fmt::format(R"(<button data-x="{}" data-y="{}" title="zoom to it">{}</button>)",
                           Fixed(mark.tPoint.dX, 4), Fixed(mark.tPoint.dY, 4), Escaped(mark.strLabel));
    return str + "</div>\n";
}

// "Rx 0.6191 (second reading ...)", each apart from the next.
std::string Angles(const ReportTable& tRotation) {
    std::string str;
    for (std::size_t i = 1; i < tRotation.aRows.size(); ++i)
        str += Element(tRotation.aRows[i][2].ends_with(kBeyond) ? "span class=\"beyond\"" : "span",
                       tRotation.aRows[i][0] + " " + tRotation.aRows[i][1]);
    return str;
}

std::string Reasons(const Report& report) {
    std::string str;
    for (const std::string& strText : TextsOf(report.aWarnings, true))
        str += Element("li", strText);
    return str.empty() ? "" : "<ul>" + str + "</ul>";
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

// The one to look at first: it failed, or more of what makes the verdict doubtful is in it.
bool IsInQuestion(const CameraReport& tCamera, const Report& report) {
    const auto DoubtsIn = [&](Camera t) {
        return std::ranges::count_if(report.aWarnings, [=](const Warning& tWarning) {
            return tWarning.bDoubt && tWarning.oCamera == t;
        });
    };
    if (report.tPair.oFailedCamera)
        return report.tPair.oFailedCamera == tCamera.tCamera;
    return tCamera.tCamera == Camera::kSlave ? DoubtsIn(Camera::kSlave) > DoubtsIn(Camera::kMaster)
                                             : DoubtsIn(Camera::kMaster) > DoubtsIn(Camera::kSlave);
}

// Verdict, angles and what speaks against them, or what to do.
std::string Banner(const Report& report) {
    std::string str = Element("h1", report.tVerdict.strHeadline);
    for (const ReportTable& tTable : TablesOf(report))
        if (tTable.bBrief && IsMeasured(report.tPair))
            return str + "<p>" + Angles(tTable) + "</p>" + Reasons(report);
    const std::string strAdvice = AdviceOf(report);
    return str + (strAdvice.empty() ? "" : Element("p", strAdvice)) + Reasons(report);
}

std::string Figure(const CameraReport& camera, const Report& report) {
    return fmt::format("<figure class=\"{}\"><figcaption>{} {}, {}</figcaption>\n{}"
                       "<output>&#160;</output>{}</figure>\n",
                       IsInQuestion(camera, report) ? "first" : "", Element("b", NameOf(camera.tCamera)),
                       Escaped(camera.tPicture.strFile), StateOf(camera, report),
                       SvgOf(camera, PlaceOfFailure(camera, report.tPair, report.tVerdict.tStatus)),
                       Buttons(camera.tMeasured));
}

std::string Numbers(const Report& report) {
    std::string strTables, strLists;
    for (const ReportTable& tTable : TablesOf(report))
        strTables += HtmlOf(tTable);
    for (const ReportList& tList : ListsOf(report))
        strLists += tList.bWarning ? "" : HtmlOf(tList);
    return Section("Result", HtmlOf(FactsOf(report))) + strTables + strLists;
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
    return fmt::format("{}<body>\n<header class=\"{}\">{}</header>\n<main>\n{}<div class=\"pictures\">\n"
                       "{}{}</div>\n<div class=\"numbers\">\n{}</div>\n</main>\n"
                       "<footer>{:%Y-%m-%d %H:%M:%S} UTC, orvex-align {}, libOrvex_Alignment {}</footer>\n"
                       "<script>{}</script>\n</body>\n</html>\n",
                       Head(report), report.tVerdict.tVerdict.szLook, Banner(report), Legend(),
                       Figure(report.tMaster, report), Figure(report.tSlave, report), Numbers(report),
                       fmt::gmtime(std::chrono::system_clock::to_time_t(std::chrono::system_clock::now())),
                       ToolVersion(), Escaped(LibraryVersion()), kReportScript);
}

} // namespace tools

#include "report/outputs.h"

#include "basics/text_table.h"
#include "report/html_text.h"
#include "report/page_elements.h"
#include "report/page_parts.h"
#include "report/reading_shapes.h"
#include "report/shapes.h"
#include "report/tables.h"

#include <algorithm>
#include <fmt/format.h>

namespace tools {
namespace {

std::string HtmlOf(const std::vector<Fact>& aFacts) {
    std::string str = "<dl>";
    for (const Fact& t : aFacts)
        str += Element("dt", t.szLabel) + Element("dd", t.strText);
    return str + "</dl>";
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
            return str + "<p>" + Angles(tTable) + "</p>" + ListItems(TextsOf(report.aWarnings, true));
    const std::string strAdvice = AdviceOf(report);
    return str + (strAdvice.empty() ? "" : Element("p", strAdvice)) +
           ListItems(TextsOf(report.aWarnings, true));
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

} // namespace

std::string HtmlOf(const Report& report) {
    const std::string strMain =
        fmt::format("{}<div class=\"pictures\">\n{}{}</div>\n<div class=\"numbers\">\n{}</div>\n", Legend(),
                    Figure(report.tMaster, report), Figure(report.tSlave, report), Numbers(report));
    return HtmlOf(PageParts{report.tVerdict.strHeadline, report.tVerdict.tVerdict.szLook, Banner(report),
                            strMain, kPictureStyle, kPictureScript});
}

} // namespace tools

#include "report/shapes.h"

#include "basics/text_table.h"
#include "report/html_text.h"
#include "report/png_encoder.h"

#include <cmath>
#include <numbers>

namespace tools {
namespace {

// A thousandth of what is measured; more than any screen shows.
constexpr int kDecimals = 4;

std::string Number(double d) {
    return Fixed(d, kDecimals);
}

std::string Attribute(const char* szName, const std::string& strValue) {
    return std::string(" ") + szName + "=\"" + Escaped(strValue) + "\"";
}

// An element with its hint for the mouse.
std::string Shape(const char* szElement, const std::string& strId, const std::string& strAttributes,
                  const std::string& strTitle) {
    return std::string("<") + szElement + Attribute("id", strId) + strAttributes + "><title>" +
           Escaped(strTitle) + "</title></" + szElement + ">\n";
}

std::string Box(const std::string& strId, const std::optional<Rectangle>& o, const std::string& strTitle) {
    if (!o)
        return "";
    return Shape("rect", strId,
                 Attribute("x", Number(o->dLeft)) + Attribute("y", Number(o->dTop)) +
                     Attribute("width", Number(o->dRight - o->dLeft)) +
                     Attribute("height", Number(o->dBottom - o->dTop)),
                 strTitle);
}

std::string Line(const std::string& strId, Point tFrom, Point tTo, const std::string& strTitle) {
    return Shape("line", strId,
                 Attribute("x1", Number(tFrom.dX)) + Attribute("y1", Number(tFrom.dY)) +
                     Attribute("x2", Number(tTo.dX)) + Attribute("y2", Number(tTo.dY)),
                 strTitle);
}

// A ring that leaves the measured point itself free, at one size on the screen, and its label beyond the
// frame's side there, within the frame if the page finds no room beyond it; the centre's label stands between
// the bars.
std::string MarkShape(const std::string& strCamera, const Mark& mark, Point tCentre) {
    const bool bCentre = mark.strKey == "centre", bLower = mark.tPoint.dY >= tCentre.dY,
               bRight = !bCentre && mark.tPoint.dX > tCentre.dX;
    const int nInward = bRight ? -12 : 12, nAbove = -16, nBelow = 24;
    return "<g class=\"mark\"" + Attribute("id", strCamera + "-" + mark.strKey) +
           Attribute("transform",
                     "translate(" + Number(mark.tPoint.dX) + " " + Number(mark.tPoint.dY) + ")") +
           R"(><g class="screen"><path d="M-12 0h8M4 0h8M0-12v8M0 4v8"/><circle r="8"/><text)" +
           Attribute("x", std::to_string(bCentre ? nInward : -nInward)) +
           Attribute("y", std::to_string(bLower ? nBelow : nAbove)) +
           Attribute("data-x", std::to_string(nInward)) +
           Attribute("data-y", std::to_string(bLower ? nAbove : nBelow)) +
           Attribute("text-anchor", bRight ? "end" : "start") + ">" + Escaped(mark.strLabel) +
           "</text></g><title>" +
           Escaped(mark.strLabel + ": x " + Fixed(mark.tPoint.dX, 3) + " px, y " + Fixed(mark.tPoint.dY, 3) +
                   " px") +
           "</title></g>\n";
}

std::string Layer(const ShapeKind& t, const std::string& strShapes) {
    return std::string("<g") + Attribute("class", t.szKey) + ">\n" + strShapes + "</g>\n";
}

// Only the horizontal bar's direction is measured; the vertical one is drawn square to it, and half as long.
std::string Cross(const std::string& strCamera, const CameraMeasurement& measured) {
    if (!measured.oCentre || !measured.oCrossAngle)
        return "";
    const double dAngle = *measured.oCrossAngle * std::numbers::pi / 180,
                 dHalf = measured.oBarSpan.value_or(0) / 2.0;
    const double dX = dHalf * std::cos(dAngle), dY = -dHalf * std::sin(dAngle);
    const Point c = *measured.oCentre;
    return Line(strCamera + "-bar-horizontal", {c.dX - dX, c.dY - dY}, {c.dX + dX, c.dY + dY},
                "horizontal bar, roll " + Fixed(*measured.oCrossAngle, 4) + " deg") +
           Line(strCamera + "-bar-vertical", {c.dX + dY / 2, c.dY - dX / 2}, {c.dX - dY / 2, c.dY + dX / 2},
                "square to the horizontal bar");
}

std::string Sides(const std::string& strCamera, const CameraMeasurement& measured) {
    std::string str;
    for (const SideName& n : kSides)
        if (measured.aoCorners[n.nFrom] && measured.aoCorners[n.nTo])
            str +=
                Line(strCamera + "-side-" + n.szKey, *measured.aoCorners[n.nFrom], *measured.aoCorners[n.nTo],
                     std::string(n.szKey) + " side, between its measured corners");
    return str;
}

// The lines whose residual is told: of every side that was read, also where a corner is missing.
std::string FittedLines(const std::string& strCamera, const CameraTrust& trust) {
    std::string str;
    for (std::size_t i = 0; i < kSides.size(); ++i)
        if (const std::optional<SideReading>& o = trust.aoSides[i]; o && o->oEnds)
            str += Line(strCamera + "-fitted-" + kSides[i].szKey, (*o->oEnds)[0], (*o->oEnds)[1],
                        std::string("line fitted along the ") + kSides[i].szKey + " side, residual " +
                            Fixed(*o->oResidual, 3) + " px");
    return str;
}

std::string Image(const std::string& strCamera, const Picture& t) {
    return R"(<image x="-0.5" y="-0.5")" + Attribute("id", strCamera + "-picture") +
           Attribute("width", std::to_string(t.nColumns)) + Attribute("height", std::to_string(t.nRows)) +
           Attribute("href", DataUrl("image/png", EncodePng(t))) + "/>\n";
}

} // namespace

std::vector<Mark> MarksOf(const CameraMeasurement& measured) {
    std::vector<Mark> a;
    if (measured.oCentre)
        a.push_back({"centre", "centre", *measured.oCentre});
    for (std::size_t i = 0; i < kCorners.size(); ++i)
        if (measured.aoCorners[i])
            a.push_back(
                {std::string("corner-") + kCorners[i].szKey, kCorners[i].szLabel, *measured.aoCorners[i]});
    return a;
}

std::string SvgOf(const CameraReport& tCamera) {
    const std::string strCamera = NameOf(tCamera.tCamera);
    const Picture& tPicture = tCamera.tPicture;
    const StageView& tView = tCamera.tView;
    std::string strCentre, strCorners;
    // Corners are not measured without a centre.
    const Point tCentre = tCamera.tMeasured.oCentre.value_or(Point{});
    for (const Mark& t : MarksOf(tCamera.tMeasured))
        (t.strKey == "centre" ? strCentre : strCorners) += MarkShape(strCamera, t, tCentre);
    return "<svg" + Attribute("id", strCamera + "-svg") + " role=\"img\"" +
           Attribute("aria-label", strCamera + " camera's picture with what was measured in it") +
           Attribute("viewBox", "-0.5 -0.5 " + std::to_string(tPicture.nColumns) + " " +
                                    std::to_string(tPicture.nRows)) +
           ">\n" + Image(strCamera, tPicture) +
           Layer(kShapeKinds[0],
                 Box(strCamera + "-window", tView.oSearchWindow, "search window of the cross")) +
           Layer(kShapeKinds[1],
                 Box(strCamera + "-frame-outer", tView.oOuterFrame, "outer frame rectangle") +
                     Box(strCamera + "-frame-inner", tView.oInnerFrame, "inner frame rectangle")) +
           Layer(kShapeKinds[2], Cross(strCamera, tCamera.tMeasured) + strCentre) +
           // Fitted lines and sides mostly coincide; the marks stay above both.
           Layer(kShapeKinds[3], Sides(strCamera, tCamera.tMeasured)) +
           Layer(kShapeKinds[4], FittedLines(strCamera, tCamera.tTrust)) + Layer(kShapeKinds[3], strCorners) +
           "</svg>\n";
}

} // namespace tools

#include "report/shapes.h"

#include "basics/text_table.h"
#include "pictures/formats.h"
#include "report/html_text.h"
#include "report/reading_shapes.h"

#include <cmath>
#include <fmt/format.h>
#include <numbers>

namespace tools {
namespace {

// A thousandth of what is measured; more than any screen shows.
constexpr int kDecimals = 4;

std::string Number(double d) {
    return Fixed(d, kDecimals);
}

// An element with its hint for the mouse. Ids and attributes are the tool's own words.
std::string Shape(const char* szElement, const std::string& strId, const std::string& strAttributes,
                  const std::string& strTitle) {
    return fmt::format("<{0} id=\"{1}\"{2}><title>{3}</title></{0}>\n", szElement, strId, strAttributes,
                       Escaped(strTitle));
}

std::string Box(const std::string& strId, const std::optional<Rectangle>& o, const std::string& strTitle) {
    if (!o)
        return "";
    return Shape("rect", strId,
                 fmt::format(R"( x="{}" y="{}" width="{}" height="{}")", Number(o->dLeft), Number(o->dTop),
                             Number(o->dRight - o->dLeft), Number(o->dBottom - o->dTop)),
                 strTitle);
}

std::string Line(const std::string& strId, Point tFrom, Point tTo, const std::string& strTitle) {
    return Shape("line", strId,
                 fmt::format(R"( x1="{}" y1="{}" x2="{}" y2="{}")", Number(tFrom.dX), Number(tFrom.dY),
                             Number(tTo.dX), Number(tTo.dY)),
                 strTitle);
}

// A ring that leaves the measured point itself free, at one size on the screen, and its label beyond the
// frame's side there, within the frame if the page finds no room beyond it; the centre's label stands between
// the bars.
std::string MarkShape(const std::string& strCamera, const Mark& mark, Point tCentre) {
    const bool bCentre = mark.strKey == "centre", bLower = mark.tPoint.dY >= tCentre.dY,
               bRight = !bCentre && mark.tPoint.dX > tCentre.dX;
    const int nInward = bRight ? -12 : 12, nAbove = -16, nBelow = 24;
    return fmt::format(R"x(<g class="mark" id="{}-{}" transform="translate({} {})"><g class="screen">)x"
                       R"(<path d="M-12 0h8M4 0h8M0-12v8M0 4v8"/><circle r="8"/>)"
                       R"(<text x="{}" y="{}" data-x="{}" data-y="{}" text-anchor="{}">{}</text></g>)"
                       "<title>{}: x {} px, y {} px</title></g>\n",
                       strCamera, mark.strKey, Number(mark.tPoint.dX), Number(mark.tPoint.dY),
                       bCentre ? nInward : -nInward, bLower ? nBelow : nAbove, nInward,
                       bLower ? nAbove : nBelow, bRight ? "end" : "start", Escaped(mark.strLabel),
                       Escaped(mark.strLabel), Fixed(mark.tPoint.dX, 3), Fixed(mark.tPoint.dY, 3));
}

std::string FailureShape(const std::string& strCamera, Point t) {
    return fmt::format(
        R"x(<g class="failure" transform="translate({} {})" id="{}-failure"><g class="screen">)x"
        R"x(<circle r="22"/><text x="0" y="-28" data-x="0" data-y="44" text-anchor="middle">failed here</text></g></g>)x"
        "\n",
        Number(t.dX), Number(t.dY), strCamera);
}

std::string Layer(const ShapeKind& kind, const std::string& strShapes) {
    return fmt::format("<g class=\"{}\">\n{}</g>\n", kind.szKey, strShapes);
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

std::string Image(const std::string& strCamera, const Picture& picture) {
    return fmt::format(R"(<image x="-0.5" y="-0.5" id="{}-picture" width="{}" height="{}" href="{}"/>)"
                       "\n",
                       strCamera, picture.nColumns, picture.nRows, DataUrl("image/png", EncodePng(picture)));
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

std::string SvgOf(const CameraReport& tCamera, std::optional<Point> oFailure) {
    const std::string strCamera = NameOf(tCamera.tCamera);
    const Picture& tPicture = tCamera.tPicture;
    const StageView& tView = tCamera.tView;
    std::string strCentre, strCorners;
    // Corners are not measured without a centre.
    const Point tCentre = tCamera.tMeasured.oCentre.value_or(Point{});
    for (const Mark& t : MarksOf(tCamera.tMeasured))
        (t.strKey == "centre" ? strCentre : strCorners) += MarkShape(strCamera, t, tCentre);
    return fmt::format(
               R"(<svg id="{0}-svg" role="img" aria-label="{0} camera's picture with what was measured in it")"
               R"( viewBox="-0.5 -0.5 {1} {2}">)"
               "\n",
               strCamera, tPicture.nColumns, tPicture.nRows) +
           Image(strCamera, tPicture) +
           Layer(kShapeKinds[0],
                 Box(strCamera + "-window", tView.oSearchWindow, "search window of the cross")) +
           Layer(kShapeKinds[1],
                 Box(strCamera + "-frame-outer", tView.oOuterFrame, "outer frame rectangle") +
                     Box(strCamera + "-frame-inner", tView.oInnerFrame, "inner frame rectangle")) +
           Layer(kShapeKinds[2], Cross(strCamera, tCamera.tMeasured) + strCentre) +
           // Fitted lines and sides mostly coincide; the marks stay above both.
           Layer(kShapeKinds[3], Sides(strCamera, tCamera.tMeasured)) +
           Layer(kShapeKinds[4], FittedLines(strCamera, tCamera.tTrust)) +
           (tCamera.tReading.oReading
                ? Layer(kShapeKinds[5], ReadingShapes(strCamera, *tCamera.tReading.oReading))
                : "") +
           Layer(kShapeKinds[3], strCorners) + (oFailure ? FailureShape(strCamera, *oFailure) : "") +
           "</svg>\n";
}

} // namespace tools

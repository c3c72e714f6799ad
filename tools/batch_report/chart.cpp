#include "batch_report/chart.h"

#include "basics/text_table.h"
#include "report/html_text.h"
#include "report/page_elements.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace tools {
namespace {

int Down(const Scale& tY, double d) {
    return kUnits - tY.At(d);
}

std::string Path(std::string_view strClass, const std::string& strAttributes, const std::string& strData,
                 const std::string& strTitle = "") {
    if (strData.empty())
        return "";
    return fmt::format("<path class=\"{}\"{} d=\"{}\">{}</path>\n", strClass, strAttributes, strData,
                       strTitle.empty() ? "" : Element("title", strTitle));
}

std::string Across(bool bUpright, int nAt) {
    return bUpright ? fmt::format("M{} 0v{}", nAt, kUnits) : fmt::format("M0 {}h{}", kUnits - nAt, kUnits);
}

std::string Grid(const Scale& tScale, bool bUpright) {
    std::string str;
    for (const Tick& t : tScale.aTicks)
        str += Across(bUpright, tScale.At(t.dAt));
    return Path("grid", "", str);
}

std::string Labels(const Scale& tScale, bool bUpright) {
    std::string str;
    for (const Tick& t : tScale.aTicks) {
        const int nAt = bUpright ? tScale.At(t.dAt) : Down(tScale, t.dAt);
        str += Element(fmt::format("i class=\"{}\" style=\"{}:{}%\"", bUpright ? "x" : "y",
                                   bUpright ? "left" : "top", Fixed(nAt * 100.0 / kUnits, 1)),
                       t.strText);
    }
    return str;
}

} // namespace

int Scale::At(double d) const {
    const double dShare = std::clamp((d - dLowest) / (dHighest - dLowest), 0.0, 1.0);
    return static_cast<int>(std::lround(dShare * kUnits));
}

Scale ScaleOf(double dLowest, double dHighest, int nMost) {
    Scale t = {dLowest, dHighest};
    const double dStep = RoundStep(dHighest - dLowest, nMost);
    for (double d = std::ceil(dLowest / dStep); d * dStep <= dHighest; ++d)
        t.aTicks.push_back({d * dStep, fmt::format("{:g}", d * dStep)});
    return t;
}

double RoundStep(double dSpan, int nMost) {
    const double dDecade = std::pow(10, std::floor(std::log10(dSpan / nMost)));
    for (const int n : {1, 2, 5})
        if (dSpan / (n * dDecade) <= nMost)
            return n * dDecade;
    return 10 * dDecade;
}

double TimeStep(double dSpan, int nMost) {
    constexpr double kDay = 86400;
    for (const double d : {60.0, 600.0, 3600.0, 6 * 3600.0, kDay, 7 * kDay, 28 * kDay, 364 * kDay})
        if (dSpan / d <= nMost)
            return d;
    return dSpan;
}

// Relative moves with a point of no length at each: the shortest there is.
void Chart::AddPoints(std::string_view strClass, const std::vector<double>& adX,
                      const std::vector<double>& adY) {
    std::string str;
    int nX = 0, nY = 0;
    for (std::size_t i = 0; i < adX.size(); ++i) {
        if (std::isnan(adY[i]))
            continue;
        const int nToX = tX.At(adX[i]), nToY = Down(tY, adY[i]);
        fmt::format_to(std::back_inserter(str), "m{}{}{}h0", nToX - nX, nToY < nY ? "" : " ", nToY - nY);
        nX = nToX;
        nY = nToY;
    }
    strShapes += Path(strClass, "", str);
}

void Chart::AddLine(std::string_view strClass, const std::vector<double>& adX,
                    const std::vector<double>& adY) {
    std::string str;
    for (std::size_t i = 0; i < adX.size(); ++i)
        str += fmt::format("{}{} {}", i == 0 ? "M" : "L", tX.At(adX[i]), Down(tY, adY[i]));
    strShapes += Path(strClass, "", str);
}

void Chart::AddLevel(std::string_view strClass, bool bUpright, double dAt, const std::string& strTitle) {
    strShapes += Path(strClass, fmt::format(" data-at=\"{}\"", Fixed(dAt, 4)),
                      Across(bUpright, (bUpright ? tX : tY).At(dAt)), strTitle);
}

void Chart::AddMarks(std::string_view strClass, const std::vector<double>& adX, double dBottom, double dTop) {
    std::string str;
    for (const double d : adX)
        str += fmt::format("M{} {}V{}", tX.At(d), Down(tY, dBottom), Down(tY, dTop));
    strShapes += Path(strClass, "", str);
}

void Chart::AddBars(std::string_view strClass, const std::vector<std::size_t>& anHeights) {
    std::string str = fmt::format("M0 {}", kUnits);
    for (std::size_t i = 0; i < anHeights.size(); ++i)
        str += fmt::format("V{}H{}", Down(tY, static_cast<double>(anHeights[i])),
                           (i + 1) * kUnits / anHeights.size());
    strShapes += Path(strClass, "", fmt::format("{}V{}", str, kUnits));
}

std::string HtmlOf(const Chart& chart) {
    return fmt::format("<figure class=\"chart\">{}<div class=\"plane\">"
                       "<svg viewBox=\"0 0 {} {}\" preserveAspectRatio=\"none\" role=\"img\" "
                       "aria-label=\"{}\">\n{}{}{}</svg>{}{}</div></figure>\n",
                       Element("figcaption", chart.strHeading), kUnits, kUnits, Escaped(chart.strHeading),
                       Grid(chart.tX, true), Grid(chart.tY, false), chart.strShapes, Labels(chart.tX, true),
                       Labels(chart.tY, false));
}

} // namespace tools

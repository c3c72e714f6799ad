#include "batch_report/charts.h"

#include "basics/text_table.h"
#include "batch/statistics.h"
#include "report/html_text.h"
#include "report/page_elements.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <utility>

namespace tools {
namespace {

constexpr int kTicks = 6, kStretches = 28;
constexpr std::size_t kBins = 80, kLeastOfStretch = 3;
constexpr double kBeyondLimit = 1.15, kBeyondDifference = 2; // of a limit: where its chart ends
constexpr double kLeastDifference = 0.001;                   // degrees, for a limit of 0

using Values = std::vector<double>;

// One group's rows in a chart.
struct Rows {
    Values adAt, adValues;
};

std::vector<Rows> ByGroup(const BatchReport& report, const Values& adValues) {
    std::vector<Rows> a(report.tGroups.aNames.size());
    for (std::size_t i = 0; i < adValues.size(); ++i)
        if (!std::isnan(adValues[i])) {
            Rows& t = a[report.tGroups.anOf[i]];
            t.adAt.push_back(report.tCourse.adAt[i]);
            t.adValues.push_back(adValues[i]);
        }
    return a;
}

Values ValuesOf(const BatchReport& report, std::array<double, 3> ReportRow::*pValues, std::size_t nAxis) {
    Values ad;
    for (const ReportRow& t : report.tRows.All())
        ad.push_back((t.*pValues)[nAxis]);
    return ad;
}

// Nothing where the list has no truth, or where the pair was not measured.
Values DeviationsOf(const BatchReport& report, std::size_t nAxis) {
    Values ad = ValuesOf(report, &ReportRow::adRaw, nAxis);
    for (std::size_t i = 0; i < ad.size(); ++i) {
        const std::optional<Angles>& oTruth = report.tRows.List().aItems[i].oTruth;
        ad[i] = oTruth ? ad[i] - (*oTruth).*kAxes[nAxis].pAngle : std::nan("");
    }
    return ad;
}

// The means of equal stretches of the course, each at the middle of its rows.
Rows TrendOf(const Rows& tRows, const Scale& tCourse) {
    std::array<Rows, kStretches> aStretches;
    for (std::size_t i = 0; i < tRows.adAt.size(); ++i) {
        Rows& t = aStretches[static_cast<std::size_t>(tCourse.At(tRows.adAt[i]) * kStretches / (kUnits + 1))];
        t.adAt.push_back(tRows.adAt[i]);
        t.adValues.push_back(tRows.adValues[i]);
    }
    Rows tTrend;
    for (const Rows& t : aStretches)
        if (t.adAt.size() >= kLeastOfStretch) {
            tTrend.adAt.push_back(SpreadOf(t.adAt).dMean);
            tTrend.adValues.push_back(SpreadOf(t.adValues).dMean);
        }
    return tTrend;
}

std::string Beyond(const Values& ad, const Scale& t) {
    const auto n = std::ranges::count_if(ad, [&](double d) { return d < t.dLowest || d > t.dHighest; });
    return n == 0 ? "" : fmt::format(", {} beyond the chart's edge and drawn there", n);
}

void AddLimits(Chart& chart, bool bUpright, double dLimit) {
    for (const double d : {-dLimit, dLimit})
        chart.AddLevel("limit", bUpright, d, "limit");
}

std::string RunChart(const BatchReport& report, const std::string& strHeading, const Values& adValues,
                     double dLimit, double dRange) {
    Chart chart = {strHeading, report.tCourse.tScale, ScaleOf(-dRange, dRange, kTicks)};
    chart.strHeading += Beyond(adValues, chart.tY);
    const std::vector<Rows> aGroups = ByGroup(report, adValues);
    for (std::size_t i = 0; i < aGroups.size(); ++i)
        chart.AddPoints(fmt::format("dots g{}", i), aGroups[i].adAt, aGroups[i].adValues);
    AddLimits(chart, false, dLimit);
    for (std::size_t i = 0; i < aGroups.size(); ++i) {
        if (aGroups[i].adAt.empty())
            continue;
        const Spread tSpread = SpreadOf(aGroups[i].adValues);
        chart.AddLevel(fmt::format("mean g{}", i), false, tSpread.dMean,
                       fmt::format("{}: mean {} of {} rows", report.tGroups.aNames[i],
                                   Fixed(tSpread.dMean, 4), tSpread.nCount));
        const Rows tTrend = TrendOf(aGroups[i], chart.tX);
        for (const char* const szClass : {"halo", "trend"})
            chart.AddLine(fmt::format("{} g{}", szClass, i), tTrend.adAt, tTrend.adValues);
    }
    return HtmlOf(chart);
}

std::string Histogram(const BatchReport& report, const std::string& strHeading, const Values& adValues,
                      std::optional<double> oLimit, double dRange) {
    Chart chart = {strHeading, ScaleOf(-dRange, dRange, kTicks), {0, 1}};
    chart.strHeading += Beyond(adValues, chart.tX);
    std::vector<std::vector<std::size_t>> aGroups;
    std::size_t nMost = 1;
    for (const Rows& tRows : ByGroup(report, adValues)) {
        std::vector<std::size_t> an(kBins);
        for (const double d : tRows.adValues)
            ++an[static_cast<std::size_t>(chart.tX.At(d)) * kBins / (kUnits + 1)];
        nMost = std::max(nMost, std::ranges::max(an));
        aGroups.push_back(std::move(an));
    }
    chart.tY = ScaleOf(0, static_cast<double>(nMost), 3);
    for (std::size_t i = 0; i < aGroups.size(); ++i)
        chart.AddBars(fmt::format("bars g{}", i), aGroups[i]);
    if (oLimit)
        AddLimits(chart, true, *oLimit);
    return HtmlOf(chart);
}

// Wide enough for all but a few.
double RangeOf(const Values& adValues) {
    Values ad;
    for (const double d : adValues)
        if (!std::isnan(d))
            ad.push_back(std::fabs(d));
    std::ranges::sort(ad);
    const double dMost = ad.empty() ? 0 : ad[(ad.size() - 1) * 99 / 100];
    return std::max(1.5 * dMost, 1e-4);
}

std::string Swatch(const std::string& strClass, const std::string& strText) {
    return fmt::format("<span class=\"{}\"><i></i>{}</span>\n", strClass, Escaped(strText));
}

} // namespace

std::string VerdictChart(const BatchReport& report) {
    const std::vector<std::string>& aNames = report.tGroups.aNames;
    Chart chart = {"What is not within range, along " + report.tCourse.strWords,
                   report.tCourse.tScale,
                   {0, static_cast<double>(aNames.size())}};
    std::map<std::pair<VerdictKind, std::size_t>, Values> tMarks;
    for (std::size_t i = 0; i < report.tGroups.anOf.size(); ++i)
        tMarks[{report.tRows.All()[i].tVerdict, report.tGroups.anOf[i]}].push_back(report.tCourse.adAt[i]);
    std::string strLegend;
    for (std::size_t i = 0; i < aNames.size(); ++i)
        chart.tY.aTicks.push_back({static_cast<double>(aNames.size() - i) - 0.5, aNames[i]});
    for (std::size_t n = kVerdicts.size(); n-- > 0;) { // doubtful ones, which are lower, in front
        const VerdictWords& tVerdict = kVerdicts[n];
        if (tVerdict.tKind == VerdictKind::kWithinRange)
            continue;
        const std::size_t nBefore = chart.strShapes.size();
        for (std::size_t i = 0; i < aNames.size(); ++i) {
            const double dBottom = static_cast<double>(aNames.size() - i) - 0.9;
            chart.AddMarks(fmt::format("mark {}", tVerdict.szKey), tMarks[{tVerdict.tKind, i}], dBottom,
                           dBottom + (tVerdict.tKind == VerdictKind::kDoubtful ? 0.5 : 0.8));
        }
        if (chart.strShapes.size() > nBefore)
            strLegend += Swatch(tVerdict.szKey, NameOf(tVerdict.tKind));
    }
    return strLegend.empty()
               ? ""
               : fmt::format(
                     "<div class=\"lanes\" style=\"--lanes:{}\">{}<div class=\"legend\">{}</div></div>\n",
                     aNames.size(), HtmlOf(chart), strLegend);
}

std::string RunCharts(const BatchReport& report) {
    std::string str;
    for (std::size_t i = 0; i < kAxes.size(); ++i)
        str += RunChart(report,
                        fmt::format("{}, raw, degrees, along {}", kAxes[i].szLabel, report.tCourse.strWords),
                        ValuesOf(report, &ReportRow::adRaw, i), report.limits.Raw(),
                        kBeyondLimit * report.limits.Raw()) +
               RunChart(report, fmt::format("{}: less its second reading, degrees", kAxes[i].szLabel),
                        ValuesOf(report, &ReportRow::adDifferences, i), report.limits.dMaxDifference,
                        kBeyondDifference * std::max(report.limits.dMaxDifference, kLeastDifference));
    return "<div class=\"charts run\">" + str + "</div>\n";
}

std::string Histograms(const BatchReport& report) {
    const bool bTruth = std::ranges::any_of(report.tRows.List().aItems,
                                            [](const BatchItem& t) { return t.oTruth.has_value(); });
    std::string str;
    for (std::size_t i = 0; i < kAxes.size(); ++i) {
        str += Histogram(report, fmt::format("{}, raw, degrees: rows", kAxes[i].szLabel),
                         ValuesOf(report, &ReportRow::adRaw, i), report.limits.Raw(),
                         kBeyondLimit * report.limits.Raw());
        const Values adDeviations = DeviationsOf(report, i);
        if (bTruth)
            str +=
                Histogram(report, fmt::format("{}: less the list's truth, degrees: rows", kAxes[i].szLabel),
                          adDeviations, std::nullopt, RangeOf(adDeviations));
    }
    return fmt::format("<div class=\"charts {}\">{}</div>\n", bTruth ? "" : "three", str);
}

std::string ChartLegend(const BatchReport& report) {
    std::string str;
    for (std::size_t i = 0; i < report.tGroups.aNames.size() && !report.tGroups.strColumn.empty(); ++i)
        str += Swatch(fmt::format("g{}", i), report.tGroups.strColumn + " " + report.tGroups.aNames[i]);
    return "<section class=\"legend\">" + str +
           Swatch("trend", fmt::format("mean of each {}th of the course", kStretches)) +
           Swatch("mean", "mean of all rows") + Swatch("limit", "limit") + "</section>\n";
}

} // namespace tools

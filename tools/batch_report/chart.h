#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tools {

// Charts are as wide as the page has room: SVG stretched over it, its labels beside it as text of the page.
// Both scales run over so many units; y upward.
constexpr int kUnits = 1000;

struct Tick {
    double dAt;
    std::string strText;
};

struct Scale {
    double dLowest, dHighest;
    std::vector<Tick> aTicks = {};

    // In units from the low end; what lies beyond an end is shown at it.
    int At(double d) const;
};

// With at most nMost ticks at round values.
Scale ScaleOf(double dLowest, double dHighest, int nMost);

// The smallest of 1, 2, 5, 10 and so on, or of the steps of clock and calendar in seconds, that divides dSpan
// into at most nMost parts.
double RoundStep(double dSpan, int nMost);
double TimeStep(double dSpan, int nMost);

struct Chart {
    std::string strHeading;
    Scale tX, tY;
    std::string strShapes = {};

    // What follows is drawn above what is there. strClass: words of the tool's own.

    // Without those that have no number.
    void AddPoints(std::string_view strClass, const std::vector<double>& adX, const std::vector<double>& adY);
    void AddLine(std::string_view strClass, const std::vector<double>& adX, const std::vector<double>& adY);
    // A line across the chart. strTitle: hint for the mouse.
    void AddLevel(std::string_view strClass, bool bUpright, double dAt, const std::string& strTitle);
    // From dBottom up to dTop.
    void AddMarks(std::string_view strClass, const std::vector<double>& adX, double dBottom, double dTop);
    // One bar beside the other over the whole chart.
    void AddBars(std::string_view strClass, const std::vector<std::size_t>& anHeights);
};

std::string HtmlOf(const Chart& chart);

} // namespace tools

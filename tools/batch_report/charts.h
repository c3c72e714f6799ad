#pragma once

#include "batch_report/report.h"

namespace tools {

// What is not within range, group by group along the course; nothing if all is.
std::string VerdictChart(const BatchReport& report);

// Per angle both readings' difference beside the library's angle, along the course.
std::string RunCharts(const BatchReport& report);

// Per angle, and where the list knows the truth of its deviation from that.
std::string Histograms(const BatchReport& report);

// The groups' colours and what lines mean.
std::string ChartLegend(const BatchReport& report);

} // namespace tools

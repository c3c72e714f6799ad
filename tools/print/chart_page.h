#pragma once

#include "chart/chart.h"

#include <string>

namespace tools {

struct PageSize {
    double dWidth;  // mm
    double dHeight; // mm
};

struct Paper {
    const char* szName;
    PageSize tSize; // landscape, as the chart is
};

// What printers and print shops take, from the smallest on.
constexpr Paper kPapers[] = {
    {"A4", {297, 210}}, {"A3", {420, 297}}, {"A2", {594, 420}}, {"A1", {841, 594}}, {"A0", {1189, 841}}};

enum class PageKind { kPdf, kSvg };

// What the chart needs at that many mm per chart unit, its margins counted.
PageSize NeededPage(const chart::Chart& tChart, double dUnitMm);

// The most mm per chart unit at which the page holds chart and margins.
double LargestUnit(const chart::Chart& tChart, const PageSize& tPage);

// A file's bytes: the chart in the middle of the page at true scale, around it the marks to crop it at, and
// its dimensions. The same arguments give the same bytes.
std::string ChartPage(const chart::Chart& tChart, double dUnitMm, const PageSize& tPage, PageKind tKind);

} // namespace tools

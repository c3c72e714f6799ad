#include "print/chart_page.h"

#include "basics/text_table.h"
#include "chart/ink.h"

#include <algorithm>
#include <cairo/cairo-pdf.h>
#include <cairo/cairo-svg.h>
#include <fmt/format.h>
#include <memory>
#include <numbers>
#include <stdexcept>

namespace tools {
namespace {

constexpr double kPointsPerMm = 72 / 25.4;

// The bare paper that stays around the frame, in widths of its line: what A3 leaves beside the usual chart.
// The measurement looks at half as much again.
constexpr double kBareLines = 2;

// Beyond the crop, mm: where the dimension lines lie, where the two lines of text stand below them, and what
// there must be at the sides, above and below. Printers leave the outermost 5 mm blank.
constexpr double kToDimension = 3, kToText[] = {11, 15}, kSideMargin = 13, kEndMargin = 21;

constexpr double kLetters = 3, kThinLine = 0.1; // mm

struct Destroy {
    void operator()(cairo_surface_t* p) const { cairo_surface_destroy(p); }
    void operator()(cairo_t* p) const { cairo_destroy(p); }
};

// What is left of the paper once it is cropped, from its centre.
chart::Rectangle HalfCrop(const chart::Chart& tChart) {
    const chart::Ink t = chart::InkOf(tChart);
    const double dBare = kBareLines * tChart.dFrameLineWidth;
    return {std::max(t.tFrameOuter.dHalfX, t.tHorizontalBar.dHalfX) + dBare,
            std::max(t.tFrameOuter.dHalfY, t.tVerticalBar.dHalfY) + dBare};
}

// Ink is where more rectangles turn one way round a point than the other: the frame's inner one is its hole.
void DrawInk(cairo_t* pPage, const chart::Ink& tInk, double dUnitMm) {
    const auto Add = [&](const chart::Rectangle& t, double dTurn) {
        cairo_rectangle(pPage, -dTurn * t.dHalfX * dUnitMm, -t.dHalfY * dUnitMm,
                        2 * dTurn * t.dHalfX * dUnitMm, 2 * t.dHalfY * dUnitMm);
    };
    Add(tInk.tFrameOuter, 1);
    Add(tInk.tFrameInner, -1);
    Add(tInk.tHorizontalBar, 1);
    Add(tInk.tVerticalBar, 1);
    cairo_fill(pPage);
}

void AddLine(cairo_t* pPage, double dX, double dY, double dToX, double dToY) {
    cairo_move_to(pPage, dX, dY);
    cairo_line_to(pPage, dToX, dToY);
}

void DrawCropMarks(cairo_t* pPage, double dHalfX, double dHalfY) {
    constexpr double kFrom = 2, kTo = 7;
    for (const double dSignX : {-1, 1})
        for (const double dSignY : {-1, 1}) {
            const double dX = dSignX * dHalfX, dY = dSignY * dHalfY;
            AddLine(pPage, dX + dSignX * kFrom, dY, dX + dSignX * kTo, dY);
            AddLine(pPage, dX, dY + dSignY * kFrom, dX, dY + dSignY * kTo);
        }
    cairo_stroke(pPage);
}

// Centred, smaller if it were wider than that.
void DrawText(cairo_t* pPage, const std::string& str, double dBaseline, double dWidest) {
    cairo_text_extents_t t;
    cairo_set_font_size(pPage, kLetters);
    cairo_text_extents(pPage, str.c_str(), &t);
    const double dShrunk = std::min(1.0, dWidest / t.x_advance);
    cairo_set_font_size(pPage, kLetters * dShrunk);
    cairo_move_to(pPage, -t.x_advance * dShrunk / 2, dBaseline);
    cairo_show_text(pPage, str.c_str());
}

// Along x, dY below the page's centre, its text on the outer side.
void DrawDimension(cairo_t* pPage, const char* szWhat, double dHalf, double dY, double dWidest) {
    constexpr double kTick = 1.5;
    AddLine(pPage, -dHalf, dY, dHalf, dY);
    for (const double dX : {-dHalf, dHalf})
        AddLine(pPage, dX, dY - kTick, dX, dY + kTick);
    cairo_stroke(pPage);
    DrawText(pPage, fmt::format("{}: {} mm", szWhat, Fixed(2 * dHalf, 2)),
             dY + (dY < 0 ? -1.5 : kLetters + 0.5), dWidest);
}

std::string DimensionsOfLines(const chart::Chart& t, double dUnitMm) {
    return fmt::format("Lines: frame {} mm, horizontal bar {} mm, vertical bar {} mm.",
                       Fixed(t.dFrameLineWidth * dUnitMm, 2), Fixed(t.dHorizontalBarWidth * dUnitMm, 2),
                       Fixed(t.dVerticalBarWidth * dUnitMm, 2));
}

// In mm around the page's centre.
void Draw(cairo_t* pPage, const chart::Chart& tChart, double dUnitMm, const PageSize& tSize) {
    const chart::Ink tInk = chart::InkOf(tChart);
    const chart::Rectangle tHalfCrop = HalfCrop(tChart);
    const double dHalfX = tHalfCrop.dHalfX * dUnitMm, dHalfY = tHalfCrop.dHalfY * dUnitMm;
    DrawInk(pPage, tInk, dUnitMm);
    cairo_set_line_width(pPage, kThinLine);
    // Cairo's own letters: no font of the machine's is asked for.
    cairo_select_font_face(pPage, "@cairo:", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    DrawCropMarks(pPage, dHalfX, dHalfY);
    DrawDimension(pPage, "frame, outer edges", tInk.tFrameOuter.dHalfX * dUnitMm, dHalfY + kToDimension,
                  2 * dHalfX);
    DrawDimension(pPage, "horizontal bar", tInk.tHorizontalBar.dHalfX * dUnitMm, -dHalfY - kToDimension,
                  2 * dHalfX);
    const double dWidest = tSize.dWidth - 10;
    DrawText(pPage,
             fmt::format("1 chart unit = {:g} mm, to be seen from {} mm. {}", dUnitMm,
                         Fixed(tChart.dDistance * dUnitMm, 1), DimensionsOfLines(tChart, dUnitMm)),
             dHalfY + kToText[0], dWidest);
    DrawText(pPage,
             "Print at 100 % (actual size), measure these lengths with a ruler, crop at the corner marks, "
             "mount it on white.",
             dHalfY + kToText[1], dWidest);
    cairo_rotate(pPage, -std::numbers::pi / 2);
    DrawDimension(pPage, "frame, outer edges", tInk.tFrameOuter.dHalfY * dUnitMm, -dHalfX - kToDimension,
                  2 * dHalfY);
    DrawDimension(pPage, "vertical bar", tInk.tVerticalBar.dHalfY * dUnitMm, dHalfX + kToDimension,
                  2 * dHalfY);
}

cairo_status_t Append(void* pBytes, const unsigned char* pNew, unsigned int nNew) {
    static_cast<std::string*>(pBytes)->append(reinterpret_cast<const char*>(pNew), nNew);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

PageSize NeededPage(const chart::Chart& tChart, double dUnitMm) {
    const chart::Rectangle t = HalfCrop(tChart);
    return {2 * (t.dHalfX * dUnitMm + kSideMargin), 2 * (t.dHalfY * dUnitMm + kEndMargin)};
}

double LargestUnit(const chart::Chart& tChart, const PageSize& tPage) {
    const chart::Rectangle t = HalfCrop(tChart);
    return std::min((tPage.dWidth / 2 - kSideMargin) / t.dHalfX, (tPage.dHeight / 2 - kEndMargin) / t.dHalfY);
}

std::string ChartPage(const chart::Chart& tChart, double dUnitMm, const PageSize& tPage, PageKind tKind) {
    std::string strBytes;
    const auto Create =
        tKind == PageKind::kPdf ? cairo_pdf_surface_create_for_stream : cairo_svg_surface_create_for_stream;
    const std::unique_ptr<cairo_surface_t, Destroy> pSurface(
        Create(Append, &strBytes, tPage.dWidth * kPointsPerMm, tPage.dHeight * kPointsPerMm));
    if (tKind == PageKind::kPdf) // without the time, which would make each file another
        cairo_pdf_surface_set_metadata(pSurface.get(), CAIRO_PDF_METADATA_CREATE_DATE, nullptr);
    const std::unique_ptr<cairo_t, Destroy> pPage(cairo_create(pSurface.get()));
    cairo_scale(pPage.get(), kPointsPerMm, kPointsPerMm);
    cairo_translate(pPage.get(), tPage.dWidth / 2, tPage.dHeight / 2);
    Draw(pPage.get(), tChart, dUnitMm, tPage);
    cairo_surface_finish(pSurface.get());
    for (const cairo_status_t t : {cairo_status(pPage.get()), cairo_surface_status(pSurface.get())})
        if (t != CAIRO_STATUS_SUCCESS)
            throw std::runtime_error(cairo_status_to_string(t));
    return strBytes;
}

} // namespace tools

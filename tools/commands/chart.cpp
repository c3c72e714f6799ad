#include "commands/commands.h"

#include "basics/console.h"
#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "commands/help.h"
#include "commands/options.h"
#include "print/chart_page.h"
#include "product/product.h"
#include "study/replacement.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <memory>
#include <optional>

namespace tools {
namespace {

constexpr double kLeastSide = 50, kLargestSide = 5000; // mm; PDF takes no larger page

struct PrintOptions {
    std::string strFile;
    std::string strPage;           // none: the smallest that holds the chart
    std::optional<double> oUnitMm; // none: the product's
    ProductOption tProduct;
    bool bOverwrite = false;
};

std::string Told(const PageSize& t) {
    return fmt::format("{} x {} mm", Fixed(t.dWidth, 1), Fixed(t.dHeight, 1));
}

CLI::Validator PageFile() {
    const auto Check = [](const std::string& str) {
        const bool bKnown = str.ends_with(".pdf") || str.ends_with(".svg");
        return bKnown ? std::string()
                      : "\"" + str + "\" does not end with .pdf or .svg, which tells the kind of file";
    };
    return {Check, "", ""};
}

PageSize ParsedPage(const std::string& str) {
    const auto pPaper = std::ranges::find(kPapers, str, &Paper::szName);
    if (pPaper != std::end(kPapers))
        return pPaper->tSize;
    const std::size_t nCross = std::min(str.find('x'), str.size());
    const auto Side = [](const std::string& strSide) {
        const double d = ParsedNumber(strSide).value_or(0);
        return d >= kLeastSide && d <= kLargestSide ? d : 0;
    };
    const PageSize t = {Side(str.substr(0, nCross)), nCross < str.size() ? Side(str.substr(nCross + 1)) : 0};
    if (t.dWidth == 0 || t.dHeight == 0)
        throw CLI::ValidationError(
            "--page",
            fmt::format("\"{}\" is not A4, A3, A2, A1, A0, or a width x height such as 500x350 with sides "
                        "of {:g} to {:g} mm",
                        str, kLeastSide, kLargestSide));
    return t;
}

// The largest of all for a chart that none holds.
PageSize SmallestPage(const chart::Chart& tChart, double dUnitMm) {
    const auto p = std::ranges::find_if(
        kPapers, [&](const Paper& t) { return LargestUnit(tChart, t.tSize) >= dUnitMm; });
    return (p == std::end(kPapers) ? std::prev(p) : p)->tSize;
}

PageSize CheckedPage(const chart::Chart& tChart, double dUnitMm, const std::string& strPage) {
    const PageSize tPage = strPage.empty() ? SmallestPage(tChart, dUnitMm) : ParsedPage(strPage);
    const double dLargest = LargestUnit(tChart, tPage);
    if (dUnitMm > dLargest)
        throw CLI::ValidationError(
            "--page",
            fmt::format("at {:g} mm per chart unit the chart needs {} with its margins, more than {}; name "
                        "a larger page, or a --unit-mm of at most {}",
                        dUnitMm, Told(NeededPage(tChart, dUnitMm)), Told(tPage),
                        Fixed(std::floor(dLargest * 1e4) / 1e4, 4)));
    return tPage;
}

ExitCode WriteChart(const PrintOptions& tOptions) {
    const Product product = tOptions.tProduct.Read();
    const chart::Chart tChart = ChartOf(product);
    const double dUnitMm = tOptions.oUnitMm.value_or(product.dUnit);
    const PageSize tPage = CheckedPage(tChart, dUnitMm, tOptions.strPage);
    const PageKind tKind = tOptions.strFile.ends_with(".pdf") ? PageKind::kPdf : PageKind::kSvg;
    const NewFile tFile = {tOptions.strFile, ChartPage(tChart, dUnitMm, tPage, tKind)};
    if (!tOptions.bOverwrite)
        RefuseToReplace({tFile});
    WriteFiles({tFile});
    Print(fmt::format("Wrote {}: {:g} mm per chart unit on a page of {}, to be seen from {} mm.\n"
                      "Print it at 100 %, then check the dimensions in its margin with a ruler.\n",
                      Harmless(tFile.strFile), dUnitMm, Told(tPage), Fixed(tChart.dDistance * dUnitMm, 1)));
    return ExitCode::kDone;
}

constexpr char kDescription[] = "Writes the chart to print at true scale.\n"
                                "It is the chart that render draws, in the middle of a page in landscape. In "
                                "the margin stand marks to crop it "
                                "at, lines as long as the frame is wide and high and as the bars are long, "
                                "with their lengths in mm, the width "
                                "of all lines, and the distance from the camera at which the chart is to be "
                                "seen. The same options give the "
                                "same bytes.";

std::string Footer() {
    return ExamplesHelp({"chart --out chart.pdf", "chart --out small.svg --unit-mm 0.6 --page A4"}) +
           ExitCodesHelp(
               {{ExitCode::kDone, "the file is written"},
                {ExitCode::kUnfitFile, "the file could not be written, or is there with other content"}});
}

} // namespace

void AddChartCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<PrintOptions>();
    CLI::App& tCommand = *tApp.add_subcommand("chart", kDescription);
    AddFile(tCommand, "--out", pOptions->strFile, "File to write; its name ends with .pdf or .svg")
        .required()
        ->check(PageFile());
    tCommand.add_flag("--overwrite", pOptions->bOverwrite,
                      "Replace a file that is there with other content; without it it is refused");
    tCommand
        .add_option("--unit-mm", pOptions->oUnitMm,
                    "Length of a chart unit on the paper, 0.001 to 1000 mm. Default: the product's, or 1")
        ->check(Within(0.001, 1000))
        ->type_name("MM");
    tCommand
        .add_option("--page", pOptions->strPage,
                    "A4, A3, A2, A1 or A0 in landscape, or another size in mm, such as 500x350. Default: the "
                    "smallest of these five that holds chart and margins")
        ->type_name("PAGE");
    pOptions->tProduct.AddTo(tCommand, "its chart is written");
    tCommand.footer(Footer());
    tCommand.callback([pOptions, &tExit] { tExit = WriteChart(*pOptions); });
}

} // namespace tools

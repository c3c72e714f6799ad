#include "commands/commands.h"

#include "basics/console.h"
#include "commands/help.h"
#include "commands/options.h"
#include "product/expected_view.h"
#include "product/values.h"

#include <memory>

namespace tools {
namespace {

struct Options {
    ProductOption tProduct;
    bool bJson = false;
};

constexpr char kDescription[] =
    "Tells every parameter of the library, and what else a product may set.\n"
    "The library is made for one module and one chart. For others a product's file, which measure, batch, "
    "render and chart take as --product, sets what differs: JSON with the sections \"parameters\", "
    "\"limits\", \"chart\" and \"cameras\", in which // and /* */ are comments. What it does not name keeps "
    "its default. Beside each value stand its unit, who reads it and its range; a \"!\" marks what a "
    "product's file has changed.\n"
    "With --json it prints a whole product's file, each value beside its default, unit, range and meaning: "
    "to be kept, changed and given back as --product.";

} // namespace

void AddParametersCommand(CLI::App& tApp, ExitCode& tExit) {
    const auto pOptions = std::make_shared<Options>();
    CLI::App& tCommand = *tApp.add_subcommand("parameters", kDescription);
    pOptions->tProduct.AddTo(tCommand, "its values are told");
    AddJson(tCommand, pOptions->bJson);
    tCommand.footer(
        ExamplesHelp({"parameters", "parameters --json >product.json", "parameters --product product.json"}) +
        ExitCodesHelp({{ExitCode::kDone, "told"}, {ExitCode::kUnfitFile, "the product's file is unfit"}}));
    tCommand.callback([pOptions, &tExit] {
        const Product product = pOptions->tProduct.Read();
        Print(pOptions->bJson ? JsonTextOf(product) : TextOf(product) + ExpectedViewText(product));
        tExit = ExitCode::kDone;
    });
}

} // namespace tools

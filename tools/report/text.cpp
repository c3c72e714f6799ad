#include "report/outputs.h"

#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "report/tables.h"

namespace tools {
namespace {

constexpr std::size_t kLabelColumns = 13;

std::string TextOf(const Fact& t) {
    std::string strLabel = t.szLabel;
    strLabel.resize(kLabelColumns, ' ');
    return "  " + strLabel + (t.bFile ? Harmless(t.strText) : Wrapped(t.strText, kLabelColumns + 2)) + "\n";
}

std::string TextOf(const ReportTable& t) {
    return std::string("\n") + Harmless(t.strHeading) + "\n" + Table(t.aRows);
}

std::string TextOf(const ReportList& t) {
    return List(t.szHeading, t.aLines);
}

template <typename Parts>
std::string TextOfAll(const Parts& aParts) {
    std::string str;
    for (const auto& t : aParts)
        str += TextOf(t);
    return str;
}

} // namespace

std::string TextOf(const Report& report) {
    return report.tVerdict.strHeadline + "\n\n" + TextOfAll(FactsOf(report)) + TextOfAll(TablesOf(report)) +
           TextOfAll(ListsOf(report));
}

} // namespace tools

#include "report/outputs.h"

#include "basics/harmless_text.h"
#include "basics/text_table.h"
#include "report/tables.h"

#include <algorithm>
#include <fmt/format.h>

namespace tools {
namespace {

constexpr std::size_t kLabelColumns = 13;
constexpr std::size_t kBriefLines = 20; // with the last one, which tells how to see the rest

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

std::size_t LinesIn(const std::string& str) {
    return static_cast<std::size_t>(std::ranges::count(str, '\n'));
}

// A list of them in so many lines, with the number of those that are left out.
std::string AsManyAsFit(const char* szHeading, std::vector<std::string> aLines, std::size_t nLines) {
    const std::size_t nAll = aLines.size();
    std::string str = List(szHeading, aLines);
    while (LinesIn(str) >= nLines && !aLines.empty()) {
        aLines.pop_back();
        str = List(szHeading, aLines) + fmt::format("  and {} more\n", nAll - aLines.size());
    }
    return str;
}

} // namespace

std::string TextOf(const Report& report) {
    return report.tVerdict.strHeadline + "\n\n" + TextOfAll(FactsOf(report)) + TextOfAll(TablesOf(report)) +
           TextOfAll(ListsOf(report));
}

std::string BriefTextOf(const Report& report) {
    std::string strFacts;
    for (const Fact& t : FactsOf(report))
        strFacts += t.bBrief ? TextOf(t) : "";
    std::string str = Wrapped(report.tVerdict.strHeadline, 0) + (strFacts.empty() ? "\n" : "\n\n") + strFacts;
    for (ReportTable& t : TablesOf(report))
        if (t.bBrief) {
            t.aRows.resize(std::min(t.aRows.size(), 1 + kAxes.size()));
            str += TextOf(t);
        }
    str += AsManyAsFit(DoubtsHeading(report), TextsOf(report.aWarnings, true),
                       kBriefLines - 1 - std::min(kBriefLines - 1, LinesIn(str)));
    const std::string strNotes = List("Notes", TextsOf(report.aWarnings, false)),
                      strRest =
                          "\nAll numbers: --verbose. The pictures with what was found: --report FILE.html\n";
    return str + (LinesIn(str + strNotes + strRest) <= kBriefLines ? strNotes : "") + strRest;
}

} // namespace tools

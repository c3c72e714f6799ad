#include "basics/text_table.h"

#include "basics/harmless_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>

namespace tools {

std::optional<double> ParsedNumber(const std::string& str) {
    const char* const pEnd = str.data() + str.size();
    double d = 0;
    const auto [pRead, tError] = std::from_chars(str.data(), pEnd, d);
    if (tError != std::errc() || pRead != pEnd || !std::isfinite(d))
        return std::nullopt;
    return d;
}

std::string Fixed(double d, int nDecimals) {
    const double dHalfStep = 0.5 * std::pow(10.0, -nDecimals);
    return fmt::format("{:.{}f}", std::fabs(d) < dHalfStep ? 0.0 : d, nDecimals);
}

std::string Listed(const std::vector<std::string>& a, const char* szLast) {
    if (a.empty())
        return "";
    const auto pLast = std::prev(a.end());
    return fmt::format("{}{}{}", fmt::join(a.begin(), pLast, ", "), a.size() > 1 ? szLast : "", *pLast);
}

std::string Wrapped(const std::string& str, std::size_t nIndent) {
    constexpr std::size_t kColumns = 100;
    std::string strLines = Harmless(str), strBreak(nIndent + 1, ' ');
    strBreak.front() = '\n';
    std::size_t nStart = 0;
    while (strLines.size() - nStart > kColumns - nIndent) {
        const std::size_t nBreak = strLines.rfind(' ', nStart + kColumns - nIndent);
        if (nBreak == strLines.npos || nBreak <= nStart)
            break; // a name longer than the line
        strLines.replace(nBreak, 1, strBreak);
        nStart = nBreak + strBreak.size();
    }
    return strLines;
}

std::string List(const std::string& strHeading, const std::vector<std::string>& aLines) {
    std::string str = aLines.empty() ? "" : "\n" + strHeading + "\n";
    for (const std::string& strLine : aLines)
        str += "  " + Wrapped(strLine, 2) + "\n";
    return str;
}

std::string Table(std::vector<std::vector<std::string>> aRows) {
    std::vector<std::size_t> anWidths;
    for (auto& aCells : aRows) {
        anWidths.resize(std::max(anWidths.size(), aCells.size()));
        for (std::size_t i = 0; i < aCells.size(); ++i) {
            aCells[i] = Harmless(aCells[i]);
            anWidths[i] = std::max(anWidths[i], aCells[i].size());
        }
    }
    std::string strTable;
    for (const auto& aCells : aRows) {
        for (std::size_t i = 0; i < aCells.size(); ++i) {
            const std::string strGap(anWidths[i] - aCells[i].size(), ' ');
            strTable += i == 0 ? "  " + aCells[i] + strGap : "   " + strGap + aCells[i];
        }
        strTable += '\n';
    }
    return strTable;
}

} // namespace tools

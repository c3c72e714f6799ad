#include "basics/text_table.h"

#include "basics/harmless_text.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace tools {

std::string Fixed(double d, int nDecimals) {
    const double dHalfStep = 0.5 * std::pow(10.0, -nDecimals);
    std::ostringstream t;
    t << std::fixed << std::setprecision(nDecimals) << (std::fabs(d) < dHalfStep ? 0.0 : d);
    return t.str();
}

std::string Listed(const std::vector<std::string>& a) {
    std::string strList;
    for (const std::string& str : a)
        strList += (strList.empty() ? "" : ", ") + str;
    return strList;
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
    std::ostringstream t;
    for (const auto& aCells : aRows) {
        for (std::size_t i = 0; i < aCells.size(); ++i)
            t << (i == 0 ? "  " : "   ") << (i == 0 ? std::left : std::right)
              << std::setw(static_cast<int>(anWidths[i])) << aCells[i];
        t << '\n';
    }
    return t.str();
}

} // namespace tools

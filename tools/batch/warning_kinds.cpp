#include "batch/warning_kinds.h"

#include <algorithm>
#include <string_view>

namespace tools {
namespace {

// Stands in no warning; a semicolon does.
constexpr std::string_view strBetween = " | ";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// "master camera, left, top sides: at worst large residual" becomes "master camera: large residual".
std::string WithoutSides(const std::string& str) {
    for (const std::string_view strSides : {" side: ", " sides: at worst "})
        if (const std::size_t n = str.find(strSides); n != str.npos)
            return str.substr(0, str.find(',')) + ": " + str.substr(n + strSides.size());
    return str;
}

// Behind its last digit: a full stop is not part of it.
std::size_t EndOfNumber(const std::string& str, std::size_t nStart) {
    const std::size_t nEnd = std::min(str.find_first_not_of("0123456789.", nStart), str.size());
    return str.find_last_not_of('.', nEnd - 1) + 1;
}

// A limit, as in "more than 0.3 px", is the same in all rows and stays.
std::string WithoutMeasuredNumbers(const std::string& str) {
    std::string strRest;
    for (std::size_t i = 0; i < str.size();) {
        const bool bNumber = IsDigit(str[i]);
        const std::size_t nEnd = bNumber ? EndOfNumber(str, i) : i + 1;
        strRest += bNumber && !strRest.ends_with("than ") ? "N" : str.substr(i, nEnd - i);
        i = nEnd;
    }
    return strRest;
}

} // namespace

std::string JoinedWarnings(const std::vector<std::string>& a) {
    std::string strCell;
    for (const std::string& str : a)
        strCell.append(strCell.empty() ? "" : strBetween).append(str);
    return strCell;
}

std::vector<std::string> WarningKinds(const std::string& strCell) {
    std::vector<std::string> a;
    for (std::size_t nStart = 0, nEnd = 0; nEnd != strCell.npos; nStart = nEnd + strBetween.size()) {
        nEnd = strCell.find(strBetween, nStart);
        a.push_back(WithoutMeasuredNumbers(WithoutSides(strCell.substr(nStart, nEnd - nStart))));
    }
    return a;
}

} // namespace tools

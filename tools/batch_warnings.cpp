#include "batch_warnings.h"

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

std::string WithoutNumbers(const std::string& str) {
    std::string strRest;
    for (std::size_t i = 0; i < str.size(); ++i) {
        const bool bBehindDigit = i > 0 && IsDigit(str[i - 1]), bDigit = IsDigit(str[i]);
        const bool bPoint = bBehindDigit && str[i] == '.' && i + 1 < str.size() && IsDigit(str[i + 1]);
        const bool bFraction = bDigit && i > 1 && str[i - 1] == '.' && IsDigit(str[i - 2]);
        if (!bDigit && !bPoint)
            strRest += str[i];
        else if (bDigit && !bBehindDigit && !bFraction)
            strRest += 'N';
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
        a.push_back(WithoutNumbers(WithoutSides(strCell.substr(nStart, nEnd - nStart))));
    }
    return a;
}

} // namespace tools

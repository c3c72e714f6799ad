#include "commands/option_checks.h"

#include "basics/numbers.h"
#include "basics/text_table.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fmt/format.h>

namespace tools {

CLI::Validator Within(double dLowest, double dHighest) {
    const auto Check = [=](const std::string& str) {
        const std::optional<double> o = ParsedNumber(str);
        const bool bWithin = o && *o >= dLowest && *o <= dHighest;
        return bWithin ? std::string()
                       : fmt::format("\"{}\" is not a number from {:g} to {:g}", str, dLowest, dHighest);
    };
    return {Check, "", ""};
}

CLI::Validator WholeNumber() {
    const auto Check = [](const std::string& str) {
        const bool bWhole =
            !str.empty() && str.size() <= 18 && str.find_first_not_of("0123456789") == str.npos;
        return bWhole ? std::string() : "\"" + str + "\" is not a whole number from 0, of at most 18 digits";
    };
    return {Check, "", ""};
}

CLI::Validator FileName() {
    const auto Check = [](const std::string& str) {
        return str.empty() ? std::string("the name is empty, as an unset variable leaves it") : std::string();
    };
    return {Check, "", ""};
}

CLI::Validator OneOf(const std::vector<std::string>& aWords) {
    const std::string strWords = Listed(aWords, " or ");
    const auto Check = [=](const std::string& str) {
        const bool bFound = std::ranges::find(aWords, str) != aWords.end();
        return bFound ? std::string() : "\"" + str + "\" is not " + strWords;
    };
    return {Check, "", ""};
}

PictureSize ParsedSize(const std::string& strOption, const std::string& str) {
    PictureSize t = {};
    char cRest = 0;
    // NOLINTBEGIN(cert-err34-c): nine digits cannot overflow
    const bool bRead =
        str.size() < 20 && std::sscanf(str.c_str(), "%9dx%9d%c", &t.nColumns, &t.nRows, &cRest) == 2;
    // NOLINTEND(cert-err34-c)
    if (!bRead || t.nColumns < 1 || t.nRows < 1 || t.nColumns > kMaxSide || t.nRows > kMaxSide ||
        PixelsOf(t) > kMaxGivenPixels)
        throw CLI::ValidationError(
            strOption, fmt::format("\"{}\" is not a width x height such as 1728x972 with sides of 1 to {} px "
                                   "and at most {} px in all",
                                   str, kMaxSide, kMaxGivenPixels));
    return t;
}

} // namespace tools

#include "batch/reasons.h"

#include "basics/harmless_text.h"
#include "trust/warnings.h"

#include <utility>

namespace tools {
namespace {

// "slave camera, centre cross: no horizontal bar", with the status before it.
std::string FailureOf(const BatchRow& tRow) {
    const auto With = [](const std::string& str, const char* szBehind) {
        return str.empty() ? "" : str + szBehind;
    };
    return With(tRow.strStatus, " ") + With(tRow.strCamera, " camera, ") + With(tRow.strStage, ": ") +
           tRow.strWords;
}

// Without the row's own names, so that one reason is one text: the column stands for the file.
std::string UnfitnessOf(const BatchItem& tItem, const std::string& strWords) {
    const auto OfFile = [](const std::string& str) { return Harmless(str) + ": "; }; // as messages name it
    for (const auto& [strOwn, szCommon] :
         {std::pair(PlaceInList(tItem.nLine), "list: "), std::pair(OfFile(tItem.strMaster), "master: "),
          std::pair(OfFile(tItem.strSlave), "slave: ")})
        if (strWords.starts_with(strOwn))
            return szCommon + strWords.substr(strOwn.size());
    return strWords;
}

} // namespace

std::vector<std::string> ReasonsOf(const BatchItem& tItem, const BatchRow& tRow) {
    switch (tRow.pVerdict->tExit) {
    case ExitCode::kNotMeasured:
        return {FailureOf(tRow)};
    case ExitCode::kUnfitFile:
        return {UnfitnessOf(tItem, tRow.strWords)};
    default:
        return tRow.aWarningKinds;
    }
}

std::string WordsOf(const std::string& strReason, const Limits& limits) {
    return GeneralText(strReason, limits).value_or(strReason);
}

} // namespace tools

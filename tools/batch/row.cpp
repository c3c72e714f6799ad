#include "batch/row.h"

#include "batch/columns.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace tools {
namespace {

// All numbers without a value.
BatchRow RowWith(const PairNames& tNames, VerdictKind tVerdict, const std::string& strWords) {
    BatchRow tRow = {tNames, &DescribeVerdict(tVerdict), {}, {}, {}, strWords, {}, {}, {}, {}};
    tRow.aNumbers.resize(NumberColumns().size());
    return tRow;
}

// In one line and without the program's name.
std::string OneLine(const std::string& str) {
    constexpr std::string_view kName = "orvex-align: ";
    std::string strLine;
    for (const char c : str.starts_with(kName) ? str.substr(kName.size()) : str)
        if (c != '\n' && !(c == ' ' && strLine.ends_with(' ')))
            strLine += c;
        else if (c == '\n' && !strLine.empty())
            strLine += ' ';
    return strLine.substr(0, strLine.find_last_not_of(' ') + 1);
}

// Results hold UTF-8 only, a file's name may be any bytes.
std::string Comparable(const std::string& str) {
    return TextOf(Json(str), kOneLine);
}

// A process that could not even say why, as for lack of memory, has left words on standard error.
BatchRow UnansweredRow(const PairNames& tNames, const WorkerOutcome& tOutcome) {
    if (tOutcome.nExit == static_cast<int>(ExitCode::kUnfitFile))
        return RowWith(tNames, VerdictKind::kUnfitInput, OneLine(tOutcome.strErr));
    return RowWith(tNames, VerdictKind::kNoAnswer,
                   fmt::format("the measuring process ended with exit code {} and without a result: {}",
                               tOutcome.nExit, OneLine(tOutcome.strErr)));
}

} // namespace

BatchRow RowOf(const BatchItem& tItem, const WorkerOutcome& tOutcome) {
    if (!tOutcome.strFailure.empty())
        return RowWith(tItem, VerdictKind::kNoAnswer, tOutcome.strFailure);
    try {
        const Json tAnswer = Json::parse(tOutcome.strAnswer);
        if (tAnswer.at("verdict") == DescribeVerdict(VerdictKind::kUnfitInput).szKey)
            return RowWith(tItem, VerdictKind::kUnfitInput, tAnswer.at("message").get<std::string>());
        return RowOfAnswer(tItem, tAnswer);
    } catch (const Json::exception&) {
        return UnansweredRow(tItem, tOutcome);
    }
}

BatchRow FaultyRow(const BatchItem& tItem) {
    return RowWith(tItem, VerdictKind::kUnfitInput, tItem.strFault);
}

bool IsRowOf(const BatchRow& tRow, const BatchItem& tItem) {
    return std::ranges::all_of(std::array{&PairNames::strId, &PairNames::strMaster, &PairNames::strSlave,
                                          &PairNames::strCalibration},
                               [&](std::string PairNames::*pName) {
                                   return Comparable(tRow.*pName) == Comparable(tItem.*pName);
                               }) &&
           std::ranges::equal(tRow.aFurther, tItem.aFurther, {}, Comparable, Comparable);
}

} // namespace tools

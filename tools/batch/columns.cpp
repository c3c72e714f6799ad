#include "batch/columns.h"

#include "basics/list_columns.h"
#include "basics/text_table.h"
#include "measuring/quantities.h"
#include "trust/numbers.h"
#include "trust/warnings.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace tools {
namespace {

// Stands in no warning; a semicolon does.
constexpr std::string_view kBetween = " | ";

// Columns of text, in a row and in measure's object. Exit code and verdict stand among them.
struct TextColumn {
    const char* szName;
    std::string BatchRow::*pText;
    const char* szKey; // nullptr if the text is not to be found there as it is
};
constexpr TextColumn kTexts[] = {{kPairColumns[0], &BatchRow::strId, nullptr},
                                 {kPairColumns[1], &BatchRow::strMaster, nullptr},
                                 {kPairColumns[2], &BatchRow::strSlave, nullptr},
                                 {kPairColumns[3], &BatchRow::strCalibration, nullptr},
                                 {"exit_code", nullptr, nullptr},
                                 {"status", &BatchRow::strStatus, "status/hex"},
                                 {"verdict", nullptr, nullptr},
                                 {"camera", &BatchRow::strCamera, "status/camera"},
                                 {"stage", &BatchRow::strStage, "status/stage"},
                                 {"words", &BatchRow::strWords, "status/words"},
                                 {"product", &BatchRow::strProduct, "product/file"},
                                 {"warnings", &BatchRow::strWarnings, nullptr}}; // where people see them
constexpr char kWarningKinds[] = "warning_kinds";
constexpr std::size_t kExitAt = 4, kVerdictAt = 6;

// "raw_deg/rx" becomes "raw_rx_deg": the unit goes to the end.
std::string ColumnOf(std::string strKey) {
    for (const std::string strUnit : {"_deg", "_px", "_percent", "_grey"})
        if (const std::size_t n = strKey.find(strUnit + "/"); n != strKey.npos)
            strKey.erase(n, strUnit.size()).append(strUnit);
    std::ranges::replace(strKey, '/', '_');
    return strKey;
}

Json Cell(const std::string& str) {
    return str.empty() ? Json() : Json(str);
}

Json NumberCell(const NumberColumn& tColumn, std::optional<double> oNumber) {
    if (!oNumber)
        return nullptr;
    return tColumn.bWhole ? Json(std::llround(*oNumber)) : Json(*oNumber);
}

// Empty for another value than a text.
std::string TextIn(const Json& tCell) {
    return tCell.is_string() ? tCell.get<std::string>() : "";
}

std::optional<double> NumberIn(const Json& tCell) {
    if (tCell.is_number())
        return tCell.get<double>();
    return ParsedNumber(TextIn(tCell));
}

std::vector<std::string> Parts(const std::string& str) {
    std::vector<std::string> a;
    for (std::size_t nStart = 0, nEnd = 0; nStart < str.size(); nStart = nEnd + kBetween.size()) {
        nEnd = std::min(str.find(kBetween, nStart), str.size());
        a.push_back(str.substr(nStart, nEnd - nStart));
    }
    return a;
}

// Whether each value is one that its column may hold.
bool Fits(const BatchRow& tRow, const std::vector<Json>& aCells) {
    for (std::size_t i = 0; i < aCells.size(); ++i) {
        const bool bNumber = i == kExitAt || (i > std::size(kTexts) && i < BatchColumns().size());
        if (!aCells[i].is_null() && (bNumber ? !NumberIn(aCells[i]) : !aCells[i].is_string()))
            return false;
    }
    return tRow.pVerdict != nullptr && NumberIn(aCells[kExitAt]) == static_cast<int>(tRow.pVerdict->tExit) &&
           std::ranges::all_of(tRow.aWarningKinds,
                               [](const std::string& str) { return GeneralText(str).has_value(); });
}

const VerdictWords* VerdictCalled(const std::string& strKey) {
    const auto p = std::ranges::find_if(
        kVerdicts, [&](const VerdictWords& tVerdict) { return tVerdict.szKey == strKey; });
    return p != kVerdicts.end() ? &*p : nullptr;
}

} // namespace

const std::vector<NumberColumn>& NumberColumns() {
    static const std::vector<NumberColumn> kColumns = [] {
        std::vector<NumberColumn> a;
        const auto Add = [&](const std::string& strOwner, const Quantities& aQuantities) {
            const std::string strWords = strOwner.ends_with("master/")  ? "master: "
                                         : strOwner.ends_with("slave/") ? "slave: "
                                                                        : "";
            for (const Quantity& tQuantity : aQuantities)
                a.push_back({ColumnOf(strOwner + tQuantity.strKey), strOwner + tQuantity.strKey,
                             strWords + tQuantity.strLabel, tQuantity.nDecimals == 0});
        };
        Add("raw_deg/", QuantitiesOf(std::optional<Angles>()));
        Add("rescaled_deg/", QuantitiesOf(std::optional<Angles>()));
        Add("", QuantitiesOf(std::optional<UncertainAngles>()));
        Add("master/", QuantitiesOf(CameraMeasurement()));
        Add("slave/", QuantitiesOf(CameraMeasurement()));
        Add("trust/master/", QuantitiesOf(CameraTrust()));
        Add("trust/slave/", QuantitiesOf(CameraTrust()));
        return a;
    }();
    return kColumns;
}

const std::vector<std::string>& BatchColumns() {
    static const std::vector<std::string> kColumns = [] {
        std::vector<std::string> a;
        for (const TextColumn& tColumn : kTexts)
            a.emplace_back(tColumn.szName);
        a.emplace_back(kWarningKinds);
        for (const NumberColumn& tColumn : NumberColumns())
            a.push_back(tColumn.strName);
        return a;
    }();
    return kColumns;
}

BatchRow RowOfAnswer(const PairNames& tNames, const Json& tAnswer) {
    BatchRow tRow = {
        tNames, VerdictCalled(tAnswer.at("verdict").get<std::string>()), {}, {}, {}, {}, {}, {}, {}, {}};
    if (tRow.pVerdict == nullptr)
        throw Json::other_error::create(501, "no verdict", &tAnswer);
    for (const TextColumn& tColumn : kTexts)
        if (tColumn.szKey != nullptr)
            tRow.*tColumn.pText =
                TextIn(tAnswer.value(PlaceOf(tColumn.szKey), Json())); // some are told at need
    tRow.strWarnings =
        fmt::to_string(fmt::join(tAnswer.at("warnings").get<std::vector<std::string>>(), kBetween));
    for (const Json& tWarning : tAnswer.at("warning_details"))
        tRow.aWarningKinds.push_back(KeyOf(tWarning));
    for (const NumberColumn& tColumn : NumberColumns())
        tRow.aNumbers.push_back(NumberIn(tAnswer.at(PlaceOf(tColumn.strKey))));
    return tRow;
}

std::vector<Json> CellsOf(const BatchRow& tRow) {
    std::vector<Json> aCells;
    for (const TextColumn& tColumn : kTexts)
        aCells.push_back(tColumn.pText == nullptr ? Json() : Cell(tRow.*tColumn.pText));
    aCells[kExitAt] = static_cast<int>(tRow.pVerdict->tExit);
    aCells[kVerdictAt] = tRow.pVerdict->szKey;
    aCells.push_back(Cell(fmt::to_string(fmt::join(tRow.aWarningKinds, kBetween))));
    for (std::size_t i = 0; i < NumberColumns().size(); ++i)
        aCells.push_back(NumberCell(NumberColumns()[i], tRow.aNumbers[i]));
    std::ranges::transform(tRow.aFurther, std::back_inserter(aCells), Cell);
    return aCells;
}

std::optional<BatchRow> RowOfCells(const std::vector<Json>& aCells) {
    if (aCells.size() < BatchColumns().size())
        return std::nullopt;
    BatchRow tRow = {{}, VerdictCalled(TextIn(aCells[kVerdictAt])), {}, {}, {}, {}, {}, {}, {}, {}};
    std::size_t nNext = 0;
    for (const TextColumn& tColumn : kTexts) {
        const Json& tCell = aCells[nNext++];
        if (tColumn.pText != nullptr)
            tRow.*tColumn.pText = TextIn(tCell);
    }
    tRow.aWarningKinds = Parts(TextIn(aCells[nNext++]));
    while (nNext < BatchColumns().size())
        tRow.aNumbers.push_back(NumberIn(aCells[nNext++]));
    while (nNext < aCells.size())
        tRow.aFurther.push_back(TextIn(aCells[nNext++]));
    return Fits(tRow, aCells) ? std::optional(std::move(tRow)) : std::nullopt;
}

} // namespace tools

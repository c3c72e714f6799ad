#include "batch/row.h"

#include "batch/warning_kinds.h"
#include "trust/trust.h"

#include <algorithm>

namespace tools {
namespace {

// Where the text columns behind the identity stand in the object that measure prints.
struct TextColumn {
    const char* szColumn;
    const char* szKey;
};
constexpr std::array<TextColumn, 6> aTextColumns = {{{"exit_code", "exit_code"},
                                                     {"status", "status/hex"},
                                                     {"verdict", "verdict"},
                                                     {"camera", "status/camera"},
                                                     {"stage", "status/stage"},
                                                     {"words", "status/words"}}};

// As measure prints them.
std::vector<std::string> NumberKeys() {
    std::vector<std::string> a;
    const auto Add = [&](const std::string& strOwner, const Quantities& aQuantities) {
        for (const Quantity& t : aQuantities)
            a.push_back(strOwner + t.strKey);
    };
    Add("raw_deg/", QuantitiesOf(std::optional<Angles>()));
    Add("rescaled_deg/", QuantitiesOf(std::optional<Angles>()));
    Add("master/", QuantitiesOf(CameraMeasurement()));
    Add("slave/", QuantitiesOf(CameraMeasurement()));
    Add("trust/master/", QuantitiesOf(CameraTrust()));
    Add("trust/slave/", QuantitiesOf(CameraTrust()));
    return a;
}

// "raw_deg/rx" becomes "raw_rx_deg": the unit goes to the end.
std::string ColumnOf(std::string strKey) {
    for (const std::string strUnit : {"_deg", "_px", "_percent", "_grey"})
        if (const std::size_t n = strKey.find(strUnit + "/"); n != strKey.npos)
            strKey.erase(n, strUnit.size()).append(strUnit);
    std::ranges::replace(strKey, '/', '_');
    return strKey;
}

constexpr char szWarnings[] = "warnings";

// They name the pair; by them a row is known again.
constexpr std::array<const char*, 4> aszIdentity = {"id", "master", "slave", "calibration"};

Json Cell(const std::string& str) {
    return str.empty() ? Json() : Json(str);
}

BatchRow Identity(const BatchItem& t) {
    return {{aszIdentity[0], Cell(t.strId)},
            {aszIdentity[1], Cell(t.strMaster)},
            {aszIdentity[2], Cell(t.strSlave)},
            {aszIdentity[3], Cell(t.strCalibration)}};
}

// All columns there, only the identity filled.
BatchRow EmptyRow(const BatchItem& t) {
    BatchRow tRow = Identity(t);
    for (const std::string& strColumn : BatchColumns())
        tRow.emplace(strColumn, nullptr);
    return tRow;
}

// In one line and without the program's name.
std::string OneLine(const std::string& str) {
    constexpr std::string_view strName = "orvex-align: ";
    std::string strLine;
    for (const char c : str.starts_with(strName) ? str.substr(strName.size()) : str)
        if (c != '\n' && !(c == ' ' && strLine.ends_with(' ')))
            strLine += c;
        else if (c == '\n' && !strLine.empty())
            strLine += ' ';
    return strLine.substr(0, strLine.find_last_not_of(' ') + 1);
}

// Results hold UTF-8 only, a file's name may be any bytes.
std::string Comparable(const Json& t) {
    return t.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Fail(BatchRow& tRow, ExitCode tExit, const char* szVerdict, const std::string& strWords) {
    tRow["exit_code"] = static_cast<int>(tExit);
    tRow["verdict"] = szVerdict;
    tRow["words"] = strWords;
}

void CopyAnswer(BatchRow& tRow, const Json& tAnswer) {
    for (const TextColumn& t : aTextColumns)
        tRow[t.szColumn] = tAnswer.at(PlaceOf(t.szKey));
    tRow[szWarnings] = Cell(JoinedWarnings(tAnswer.at(szWarnings)));
    for (const std::string& strKey : NumberKeys())
        tRow[ColumnOf(strKey)] = tAnswer.at(PlaceOf(strKey));
}

void TakeAnswer(BatchRow& tRow, const ChildOutcome& t) {
    try {
        CopyAnswer(tRow, Json::parse(t.strOut));
    } catch (const Json::exception&) {
        Fail(tRow, kNotMeasured, "no_answer",
             "the measuring process ended with exit code " + std::to_string(t.nExit) +
                 " and without a result: " + OneLine(t.strErr));
    }
}

} // namespace

const std::vector<std::string>& BatchColumns() {
    static const std::vector<std::string> aColumns = [] {
        std::vector<std::string> a(aszIdentity.begin(), aszIdentity.end());
        for (const TextColumn& t : aTextColumns)
            a.emplace_back(t.szColumn);
        a.emplace_back(szWarnings); // before the many numbers, where people see it
        for (const std::string& strKey : NumberKeys())
            a.push_back(ColumnOf(strKey));
        return a;
    }();
    return aColumns;
}

BatchRow RowOf(const BatchItem& tItem, const ChildOutcome& tOutcome) {
    BatchRow tRow = EmptyRow(tItem);
    if (!tOutcome.strFailure.empty())
        Fail(tRow, kNotMeasured, "no_answer", tOutcome.strFailure);
    else if (tOutcome.nExit == kUnfitFile)
        Fail(tRow, kUnfitFile, "unfit_input", OneLine(tOutcome.strErr));
    else
        TakeAnswer(tRow, tOutcome);
    return tRow;
}

std::string PlaceInList(const BatchItem& t) {
    return "line " + std::to_string(t.nLine) + " of the list: ";
}

BatchRow FaultyRow(const BatchItem& t) {
    BatchRow tRow = EmptyRow(t);
    Fail(tRow, kUnfitFile, "unfit_input",
         PlaceInList(t) + t.strFault + ". Mend the line and measure the list again.");
    return tRow;
}

std::optional<ExitCode> ExitIn(const BatchRow& tRow) {
    const Json& tCell = tRow.at("exit_code");
    for (const ExitCode t : {kWithinRange, kOutOfRange, kNotMeasured, kUnfitFile})
        if (tCell == static_cast<int>(t) || tCell == std::to_string(t))
            return t;
    return std::nullopt;
}

bool IsRowOf(const BatchRow& tRow, const BatchItem& tItem) {
    BatchRow tRowsIdentity;
    for (const char* const szColumn : aszIdentity)
        tRowsIdentity[szColumn] = tRow.at(szColumn);
    return Comparable(tRowsIdentity) == Comparable(Identity(tItem));
}

} // namespace tools

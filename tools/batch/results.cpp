#include "batch/results.h"

#include "basics/csv.h"
#include "basics/numbers.h"
#include "basics/tool_error.h"

#include <algorithm>

namespace tools {
namespace {

std::string CellOf(const Json& t) {
    if (t.is_null())
        return "";
    return t.is_string() ? t.get<std::string>() : t.dump();
}

// Text that looks like a number stays text where it names something; only exit code and measurements are read
// as numbers, and only by who asks for them.
BatchRow RowOfCells(const std::vector<std::string>& aCells) {
    BatchRow tRow;
    for (std::size_t i = 0; i < BatchColumns().size(); ++i)
        tRow[BatchColumns()[i]] = aCells[i].empty() ? Json() : Json(aCells[i]);
    return tRow;
}

ToolError Foreign(const std::string& strFile, const std::string& strWhat) {
    return {strFile, strWhat,
            "Name the unfinished results of this list, from this version and in the same --format, or a new "
            "file"};
}

ToolError ForeignRow(const std::string& strFile, std::size_t nRow) {
    return Foreign(strFile, "does not hold a batch's results in row " + std::to_string(nRow));
}

StoredRows ReadCsvRows(const std::string& strFile, const std::string& strText) {
    StoredRows t = {{}, HeadOf(RowFormat::kCsv).size()};
    const std::vector<CsvRecord> aRecords = ParseCsv(strText);
    for (std::size_t i = 1; i < aRecords.size() && aRecords[i].bLineEnded; ++i) {
        if (aRecords[i].aCells.size() != BatchColumns().size())
            throw ForeignRow(strFile, i);
        t.aRows.push_back(RowOfCells(aRecords[i].aCells));
        if (!ExitIn(t.aRows.back()))
            throw ForeignRow(strFile, i);
        t.nBytes = aRecords[i].nEnd;
    }
    return t;
}

bool HasAllColumns(const Json& t) {
    return t.is_object() && t.size() == BatchColumns().size() &&
           std::ranges::all_of(BatchColumns(), [&](const std::string& str) { return t.contains(str); });
}

StoredRows ReadJsonLines(const std::string& strFile, const std::string& strText) {
    StoredRows t = {{}, 0};
    for (std::size_t nEnd = 0; (nEnd = strText.find('\n', t.nBytes)) != strText.npos; t.nBytes = nEnd + 1) {
        const Json tRow = Json::parse(strText.substr(t.nBytes, nEnd - t.nBytes), nullptr, false);
        if (!HasAllColumns(tRow) || !ExitIn(tRow))
            throw ForeignRow(strFile, t.aRows.size() + 1);
        t.aRows.push_back(tRow);
    }
    return t;
}

} // namespace

std::string HeadOf(RowFormat tFormat) {
    return tFormat == RowFormat::kCsv ? CsvLine(BatchColumns()) : "";
}

std::string LineOf(RowFormat tFormat, const BatchRow& tRow) {
    if (tFormat == RowFormat::kJsonLines)
        return TextOf(tRow, kOneLine);
    std::vector<std::string> aCells;
    for (const Json& t : tRow)
        aCells.push_back(CellOf(t));
    return CsvLine(aCells);
}

StoredRows ReadRows(RowFormat tFormat, const std::string& strFile, const std::string& strText) {
    const std::string strStart = tFormat == RowFormat::kCsv ? HeadOf(tFormat) : "{\"id\":";
    if (strText.substr(0, strStart.size()) != strStart.substr(0, strText.size()))
        throw Foreign(strFile, "does not begin as a batch's results do");
    if (strText.size() < strStart.size())
        return {{}, 0};
    return tFormat == RowFormat::kCsv ? ReadCsvRows(strFile, strText) : ReadJsonLines(strFile, strText);
}

} // namespace tools

#include "batch/results.h"

#include "basics/csv.h"
#include "basics/tool_error.h"
#include "batch/columns.h"

#include <algorithm>
#include <utility>

namespace tools {
namespace {

std::string CellOf(const Json& t) {
    if (t.is_null())
        return "";
    return t.is_string() ? t.get<std::string>() : t.dump();
}

ToolError Foreign(const std::string& strFile, const std::string& strWhat) {
    return {strFile, strWhat,
            "Name the unfinished results of this list, from this version, with the same columns and "
            "--format, or a new file"};
}

void AddRow(StoredRows& tStored, const RowForm& tForm, const std::string& strFile,
            const std::vector<Json>& aCells, std::size_t nEnd) {
    std::optional<BatchRow> oRow;
    if (aCells.size() == tForm.aColumns.size())
        oRow = RowOfCells(aCells);
    if (!oRow)
        throw Foreign(strFile,
                      "does not hold a batch's results in row " + std::to_string(tStored.aRows.size() + 1));
    tStored.aRows.push_back(std::move(*oRow));
    tStored.nBytes = nEnd;
}

StoredRows ReadCsvRows(const RowForm& tForm, const std::string& strFile, const std::string& strText) {
    StoredRows tStored = {{}, HeadOf(tForm).size()};
    const std::vector<CsvRecord> aRecords = ParseCsv(strText);
    for (std::size_t i = 1; i < aRecords.size() && aRecords[i].bLineEnded; ++i) {
        std::vector<Json> aCells;
        for (const std::string& strCell : aRecords[i].aCells)
            aCells.push_back(strCell.empty() ? Json() : Json(strCell));
        AddRow(tStored, tForm, strFile, aCells, aRecords[i].nEnd);
    }
    return tStored;
}

// Nothing if the object lacks one of the columns.
std::vector<Json> CellsIn(const Json& tObject, const std::vector<std::string>& aColumns) {
    std::vector<Json> aCells;
    if (tObject.is_object() && tObject.size() == aColumns.size())
        for (const std::string& strColumn : aColumns)
            if (tObject.contains(strColumn))
                aCells.push_back(tObject.at(strColumn));
    return aCells;
}

StoredRows ReadJsonLines(const RowForm& tForm, const std::string& strFile, const std::string& strText) {
    StoredRows tStored = {{}, 0};
    for (std::size_t nEnd = 0; (nEnd = strText.find('\n', tStored.nBytes)) != strText.npos;) {
        const std::string strLine = strText.substr(tStored.nBytes, nEnd - tStored.nBytes);
        AddRow(tStored, tForm, strFile, CellsIn(Json::parse(strLine, nullptr, false), tForm.aColumns),
               nEnd + 1);
    }
    return tStored;
}

} // namespace

RowForm FormOf(RowFormat tFormat, const BatchList& tList) {
    RowForm tForm = {tFormat, BatchColumns()};
    std::ranges::copy(tList.aFurtherNames, std::back_inserter(tForm.aColumns));
    return tForm;
}

std::string HeadOf(const RowForm& tForm) {
    return tForm.tFormat == RowFormat::kCsv ? CsvLine(tForm.aColumns) : "";
}

std::string LineOf(const RowForm& tForm, const BatchRow& tRow) {
    const std::vector<Json> aCells = CellsOf(tRow);
    if (tForm.tFormat == RowFormat::kJsonLines) {
        Json tObject;
        for (std::size_t i = 0; i < aCells.size(); ++i)
            tObject[tForm.aColumns[i]] = aCells[i];
        return TextOf(tObject, kOneLine);
    }
    std::vector<std::string> aTexts(aCells.size());
    std::ranges::transform(aCells, aTexts.begin(), CellOf);
    return CsvLine(aTexts);
}

StoredRows ReadRows(const RowForm& tForm, const std::string& strFile, const std::string& strText) {
    const bool bCsv = tForm.tFormat == RowFormat::kCsv;
    const std::string strStart = bCsv ? HeadOf(tForm) : "{\"id\":";
    if (strText.substr(0, strStart.size()) != strStart.substr(0, strText.size()))
        throw Foreign(strFile, "does not begin as a batch's results do");
    if (strText.size() < strStart.size())
        return {{}, 0};
    return bCsv ? ReadCsvRows(tForm, strFile, strText) : ReadJsonLines(tForm, strFile, strText);
}

} // namespace tools

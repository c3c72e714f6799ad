#include "batch/list.h"

#include "basics/csv.h"
#include "basics/files.h"
#include "basics/list_columns.h"
#include "basics/text_table.h"
#include "basics/tool_error.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <utility>

namespace tools {
namespace {

constexpr std::size_t kLimit = std::size_t{1} << 28;

constexpr char kForm[] =
    "The first line names the columns, apart by commas: master, slave and, if wanted, id and calibration";

// The place of each column in the records; none if the list lacks it.
class Columns {
public:
    Columns(std::string strFile, const CsvRecord& tHead)
        : m_strFile(std::move(strFile)), m_aNames(tHead.aCells) {}

    bool Has(const char* szName) const { return std::ranges::find(m_aNames, szName) != m_aNames.end(); }
    std::size_t Count() const { return m_aNames.size(); }

    // Which of two columns of one name is meant nobody can tell.
    void Check(const char* szName, bool bRequired) const {
        const auto nCount = std::ranges::count(m_aNames, szName);
        if (nCount > 1 || (bRequired && nCount == 0))
            throw ToolError(m_strFile,
                            fmt::format("has {} column \"{}\"; its columns are \"{}\"",
                                        nCount == 0 ? "no" : "more than one", szName,
                                        fmt::join(m_aNames, "\", \"")),
                            nCount == 0 ? kForm : "Keep one of them");
    }

    // Empty where the record ends before it.
    std::string In(const CsvRecord& tRecord, const char* szName) const {
        const auto nPlace = static_cast<std::size_t>(std::ranges::find(m_aNames, szName) - m_aNames.begin());
        return nPlace < tRecord.aCells.size() ? tRecord.aCells[nPlace] : "";
    }

private:
    std::string m_strFile;
    std::vector<std::string> m_aNames;
};

// No angle depends on the calibration memory.
bool IsRequired(const char* szPairColumn) {
    return szPairColumn == kPairColumns[1] || szPairColumn == kPairColumns[2];
}

bool IsText(const std::string& str) {
    return std::ranges::none_of(str, [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\r' && c != '\n';
    });
}

std::optional<Angles> TruthOf(const Columns& tColumns, const CsvRecord& tRecord) {
    std::array<std::optional<double>, kTruthColumns.size()> ao;
    std::ranges::transform(kTruthColumns, ao.begin(),
                           [&](const char* sz) { return ParsedNumber(tColumns.In(tRecord, sz)); });
    return ao[0] && ao[1] && ao[2] ? std::optional(Angles{*ao[0], *ao[1], *ao[2]}) : std::nullopt;
}

// A pair without known rotation is measured like any other; one whose rotation cannot be read has a slip in
// its line.
std::string FaultOf(const Columns& tColumns, const CsvRecord& tRecord) {
    if (const std::size_t n = tRecord.aCells.size(); n != tColumns.Count())
        return "it has " + std::to_string(n) + (n == 1 ? " column" : " columns") +
               ", but the first line names " + std::to_string(tColumns.Count());
    for (const char* const szName : kPairColumns)
        if (tColumns.Has(szName) && szName != kPairColumns.back() && tColumns.In(tRecord, szName).empty())
            return std::string("the column \"") + szName + "\" is empty";
    for (const char* const szName : kTruthColumns)
        if (const std::string str = tColumns.In(tRecord, szName); !str.empty() && !ParsedNumber(str))
            return "\"" + str + "\" under \"" + szName + "\" is not a number of degrees";
    return "";
}

BatchItem ItemOf(const Columns& tColumns, const CsvRecord& tRecord, std::size_t nRow) {
    const auto& [szId, szMaster, szSlave, szCalibration] = kPairColumns;
    return {{tColumns.Has(szId) ? tColumns.In(tRecord, szId) : std::to_string(nRow),
             tColumns.In(tRecord, szMaster), tColumns.In(tRecord, szSlave),
             tColumns.In(tRecord, szCalibration)},
            TruthOf(tColumns, tRecord),
            tRecord.nLine,
            FaultOf(tColumns, tRecord)};
}

std::string FolderOf(const std::string& strFile) {
    const std::string str = std::filesystem::path(strFile).parent_path();
    return str.empty() ? "." : str;
}

} // namespace

BatchList ReadBatchList(const std::string& strFile) {
    const std::string strText = ReadFile(strFile, kLimit);
    if (!IsText(strText))
        throw ToolError(strFile, "is not a list but a binary file", kForm);
    const std::vector<CsvRecord> aRecords = ParseCsv(strText);
    if (aRecords.empty())
        throw ToolError(strFile, "is empty", kForm);
    const Columns tColumns(strFile, aRecords.front());
    for (const char* const szName : kPairColumns)
        tColumns.Check(szName, IsRequired(szName));
    for (const char* const szName : kTruthColumns)
        tColumns.Check(szName, false);
    // Such a quote takes in all that follows: how many rows are meant cannot be told.
    if (aRecords.back().bQuoteOpen)
        throw ToolError(strFile,
                        "in line " + std::to_string(aRecords.back().nLine) +
                            " a quote is opened that is never closed",
                        "Mend that line; nothing has been measured");
    BatchList tList = {strFile, FolderOf(strFile), tColumns.Has(kPairColumns.front()), {}};
    for (std::size_t i = 1; i < aRecords.size(); ++i)
        tList.aItems.push_back(ItemOf(tColumns, aRecords[i], i));
    if (tList.aItems.empty())
        throw ToolError(strFile, "names columns, but no pair to measure", "Add a line for each pair");
    return tList;
}

} // namespace tools

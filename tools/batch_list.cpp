#include "batch_list.h"

#include "csv.h"
#include "files.h"
#include "numbers.h"
#include "text_table.h"
#include "tool_error.h"

#include <algorithm>
#include <filesystem>

namespace tools {
namespace {

constexpr std::size_t nLimit = std::size_t{1} << 28;

constexpr char szForm[] =
    "The first line names the columns, apart by commas: master, slave, calibration and, "
    "if wanted, id";

// The place of each column in the records; none if the list lacks it.
class Columns {
public:
    Columns(const std::string& strFile, const CsvRecord& tHead)
        : m_strFile(strFile), m_aNames(tHead.aCells) {}

    bool Has(const char* szName) const { return std::ranges::find(m_aNames, szName) != m_aNames.end(); }
    std::size_t Count() const { return m_aNames.size(); }

    void Require(const char* szName) const {
        if (!Has(szName))
            throw ToolError(m_strFile,
                            std::string("has no column \"") + szName + "\"; its columns are " + Names(),
                            szForm);
    }

    const std::string& In(const CsvRecord& tRecord, const char* szName) const {
        const auto nPlace = std::ranges::find(m_aNames, szName) - m_aNames.begin();
        return tRecord.aCells[static_cast<std::size_t>(nPlace)];
    }

    const std::string& Filled(const CsvRecord& tRecord, const char* szName) const {
        const std::string& str = In(tRecord, szName);
        if (str.empty())
            throw AtLine(tRecord, std::string("the column \"") + szName + "\" is empty");
        return str;
    }

    ToolError AtLine(const CsvRecord& tRecord, const std::string& strWhat) const {
        return {m_strFile, "in line " + std::to_string(tRecord.nLine) + " " + strWhat,
                "Mend that line; nothing has been measured"};
    }

private:
    std::string Names() const {
        std::vector<std::string> a;
        for (const std::string& strName : m_aNames)
            a.push_back("\"" + strName + "\"");
        return Listed(a);
    }

    std::string m_strFile;
    std::vector<std::string> m_aNames;
};

bool IsText(const std::string& str) {
    return std::ranges::none_of(str, [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\r' && c != '\n';
    });
}

double TruthAt(const Columns& tColumns, const CsvRecord& tRecord, const char* szName) {
    const std::optional<double> o = ParsedNumber(tColumns.In(tRecord, szName));
    if (!o)
        throw tColumns.AtLine(tRecord, "\"" + tColumns.In(tRecord, szName) + "\" under \"" + szName +
                                           "\" is not a number of degrees");
    return *o;
}

std::optional<Angles> TruthOf(const Columns& tColumns, const CsvRecord& tRecord) {
    if (!std::ranges::all_of(kTruthColumns, [&](const char* sz) { return tColumns.Has(sz); }))
        return std::nullopt;
    return Angles{TruthAt(tColumns, tRecord, kTruthColumns[0]), TruthAt(tColumns, tRecord, kTruthColumns[1]),
                  TruthAt(tColumns, tRecord, kTruthColumns[2])};
}

BatchItem ItemOf(const Columns& tColumns, const CsvRecord& tRecord, std::size_t nRow) {
    if (tRecord.bQuoteOpen)
        throw tColumns.AtLine(tRecord, "a quote is opened that is never closed");
    if (tRecord.aCells.size() != tColumns.Count())
        throw tColumns.AtLine(tRecord, "there are " + std::to_string(tRecord.aCells.size()) +
                                           " columns, but the first line names " +
                                           std::to_string(tColumns.Count()));
    return {tColumns.Has("id") ? tColumns.Filled(tRecord, "id") : std::to_string(nRow),
            tColumns.Filled(tRecord, "master"), tColumns.Filled(tRecord, "slave"),
            tColumns.Filled(tRecord, "calibration"), TruthOf(tColumns, tRecord)};
}

std::string FolderOf(const std::string& strFile) {
    const std::string str = std::filesystem::path(strFile).parent_path();
    return str.empty() ? "." : str;
}

} // namespace

BatchList ReadBatchList(const std::string& strFile) {
    const std::string strText = ReadFile(strFile, nLimit);
    if (!IsText(strText))
        throw ToolError(strFile, "is not a list but a binary file", szForm);
    const std::vector<CsvRecord> aRecords = ParseCsv(strText);
    if (aRecords.empty())
        throw ToolError(strFile, "is empty", szForm);
    const Columns tColumns(strFile, aRecords.front());
    for (const char* const szName : {"master", "slave", "calibration"})
        tColumns.Require(szName);
    BatchList tList = {strFile, FolderOf(strFile), tColumns.Has("id"), {}};
    for (std::size_t i = 1; i < aRecords.size(); ++i)
        tList.aItems.push_back(ItemOf(tColumns, aRecords[i], i));
    if (tList.aItems.empty())
        throw ToolError(strFile, "names columns, but no pair to measure", "Add a line for each pair");
    return tList;
}

} // namespace tools

#include "batch/list.h"

#include "basics/files.h"
#include "basics/list_columns.h"
#include "basics/text_table.h"
#include "basics/tool_error.h"
#include "batch/list_head.h"

#include <algorithm>
#include <filesystem>

namespace tools {
namespace {

constexpr std::size_t kLimit = std::size_t{1} << 28;

bool IsText(const std::string& str) {
    return std::ranges::none_of(str, [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\r' && c != '\n';
    });
}

std::optional<Angles> TruthOf(const ListHead& tHead, const CsvRecord& tRecord) {
    std::array<std::optional<double>, kTruthColumns.size()> ao;
    std::ranges::transform(kTruthColumns, ao.begin(),
                           [&](const char* sz) { return ParsedNumber(tHead.In(tRecord, sz)); });
    return ao[0] && ao[1] && ao[2] ? std::optional(Angles{*ao[0], *ao[1], *ao[2]}) : std::nullopt;
}

// A pair without known rotation is measured like any other; one whose rotation cannot be read has a slip in
// its line.
std::string FaultOf(const ListHead& tHead, const CsvRecord& tRecord) {
    if (const std::size_t n = tRecord.aCells.size(); n != tHead.Count())
        return "it has " + std::to_string(n) + (n == 1 ? " column" : " columns") +
               ", but the first line names " + std::to_string(tHead.Count());
    for (const char* const szName : kPairColumns)
        if (tHead.Has(szName) && szName != kPairColumns.back() && tHead.In(tRecord, szName).empty())
            return std::string("the column \"") + szName + "\" is empty";
    for (const char* const szName : kTruthColumns)
        if (const std::string str = tHead.In(tRecord, szName); !str.empty() && !ParsedNumber(str))
            return "\"" + str + "\" under \"" + szName + "\" is not a number of degrees";
    return "";
}

BatchItem ItemOf(const ListHead& tHead, const CsvRecord& tRecord, std::size_t nRow) {
    const auto& [szId, szMaster, szSlave, szCalibration] = kPairColumns;
    const std::string strFault = FaultOf(tHead, tRecord);
    return {{tHead.Has(szId) ? tHead.In(tRecord, szId) : std::to_string(nRow), tHead.In(tRecord, szMaster),
             tHead.In(tRecord, szSlave), tHead.In(tRecord, szCalibration)},
            TruthOf(tHead, tRecord),
            tRecord.nLine,
            strFault.empty()
                ? ""
                : PlaceInList(tRecord.nLine) + strFault + ". Mend the line and measure the list again.",
            tHead.FurtherIn(tRecord)};
}

std::string FolderOf(const std::string& strFile) {
    const std::string str = std::filesystem::path(strFile).parent_path();
    return str.empty() ? "." : str;
}

} // namespace

std::string PlaceInList(std::size_t nLine) {
    return "line " + std::to_string(nLine) + " of the list: ";
}

BatchList ReadBatchList(const std::string& strFile) {
    const std::string strText = ReadFile(strFile, kLimit);
    if (strText.starts_with("\xFF\xFE") || strText.starts_with("\xFE\xFF"))
        throw ToolError(strFile, "is text in UTF-16", "Save it as UTF-8");
    if (!IsText(strText))
        throw ToolError(strFile, "is not a list but a binary file", kListForm);
    const std::vector<CsvRecord> aRecords = ParseCsv(strText, {SeparatorOf(strText), true});
    if (aRecords.empty())
        throw ToolError(strFile, "is empty", kListForm);
    const ListHead tHead(strFile, aRecords.front().aCells);
    // Such a quote takes in all that follows: how many rows are meant cannot be told.
    if (aRecords.back().bQuoteOpen)
        throw ToolError(strFile,
                        "in line " + std::to_string(aRecords.back().nLine) +
                            " a quote is opened that is never closed",
                        "Mend that line; nothing has been measured");
    BatchList tList = {strFile, FolderOf(strFile), tHead.Has(kPairColumns.front()), tHead.FurtherNames(), {}};
    for (std::size_t i = 1; i < aRecords.size(); ++i)
        tList.aItems.push_back(ItemOf(tHead, aRecords[i], i));
    if (tList.aItems.empty())
        throw ToolError(strFile, "names columns, but no pair to measure", "Add a line for each pair");
    return tList;
}

} // namespace tools

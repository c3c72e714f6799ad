// The list of a batch, earlier results that a batch goes on behind, and truth files. The first byte says
// which of them the rest of the input is.

#include "basics/tool_error.h"
#include "batch/results.h"
#include "batch/summary.h"
#include "measuring/truth.h"
#include "memory_file.h"

#include <cstdint>
#include <cstring>

using namespace fuzz;

namespace {

void ReadList(const MemoryFile& tFile) {
    Require(!tools::ReadBatchList(tFile.Name()).aItems.empty(), "a list has something to measure");
}

std::string LinesOf(const tools::RowForm& tForm, const std::vector<tools::BatchRow>& aRows) {
    std::string str = tools::HeadOf(tForm);
    for (const tools::BatchRow& t : aRows)
        str += tools::LineOf(tForm, t);
    return str;
}

// What can be read can be summed up, and written and read again as the same.
void ReadResults(const MemoryFile& tFile, tools::RowFormat tFormat, const std::string& strText) {
    const tools::RowForm tForm = tools::FormOf(tFormat, {});
    const tools::StoredRows t = tools::ReadRows(tForm, tFile.Name(), strText);
    Require(t.nBytes <= strText.size(), "whole rows lie in the text");
    tools::BatchSummary tSummary{tools::Limits()};
    tools::BatchItem tItem = {};
    tItem.strMaster = "master.pgm";
    tItem.oTruth = tools::Angles{0.1, -0.2, 0.3};
    for (const tools::BatchRow& tRow : t.aRows) {
        tools::IsRowOf(tRow, tItem);
        tSummary.Add(tItem, tRow);
    }
    Require(!tSummary.Text().empty() && !tSummary.RepeatabilityText().empty(), "a summary says something");
    const std::string strLines = LinesOf(tForm, t.aRows);
    Require(LinesOf(tForm, tools::ReadRows(tForm, tFile.Name(), strLines).aRows) == strLines,
            "results that are written read back the same");
}

void Read(const MemoryFile& tFile, unsigned int nKind, const std::string& strText) {
    switch (nKind) {
    case 0:
        return ReadList(tFile);
    case 1:
        return ReadResults(tFile, tools::RowFormat::kCsv, strText);
    case 2:
        return ReadResults(tFile, tools::RowFormat::kJsonLines, strText);
    default:
        tools::ReadTruth(tFile.Name());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    if (nBytes == 0)
        return 0;
    const std::string strText(reinterpret_cast<const char*>(pBytes) + 1, nBytes - 1);
    static const MemoryFile tFile;
    tFile.Hold(strText);
    try {
        Read(tFile, pBytes[0] % 4u, strText);
    } catch (const tools::ToolError& t) {
        Require(std::strstr(t.what(), "\n  ") != nullptr, "an error says what to do");
    }
    return 0;
}

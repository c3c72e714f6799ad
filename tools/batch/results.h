#pragma once

#include "batch/row.h"

namespace tools {

enum class RowFormat { kCsv, kJsonLines };

// What stands before the first row; empty for JSON lines.
std::string HeadOf(RowFormat tFormat);

// With its line break.
std::string LineOf(RowFormat tFormat, const BatchRow& tRow);

// The rows that a results file holds, without a last one that was cut off.
struct StoredRows {
    std::vector<BatchRow> aRows;
    std::size_t nBytes; // of head and whole rows
};

// Throws ToolError if the text is not the result of a batch in this format.
StoredRows ReadRows(RowFormat tFormat, const std::string& strFile, const std::string& strText);

} // namespace tools

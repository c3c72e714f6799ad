#pragma once

#include "batch/row.h"

namespace tools {

enum class RowFormat { kCsv, kJsonLines };

struct RowForm {
    RowFormat tFormat;
    std::vector<std::string> aColumns;
};

// The rows of a list have its other columns behind their own.
RowForm FormOf(RowFormat tFormat, const BatchList& tList);

// What stands before the first row; empty for JSON lines.
std::string HeadOf(const RowForm& tForm);

// With its line break.
std::string LineOf(const RowForm& tForm, const BatchRow& tRow);

// The rows that a results file holds, without a last one that was cut off.
struct StoredRows {
    std::vector<BatchRow> aRows;
    std::size_t nBytes; // of head and whole rows
};

// Throws ToolError if the text is not the result of a batch in this form.
StoredRows ReadRows(const RowForm& tForm, const std::string& strFile, const std::string& strText);

} // namespace tools

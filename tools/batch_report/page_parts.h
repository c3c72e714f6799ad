#pragma once

#include "batch_report/report.h"

namespace tools {

extern const char kBatchStyle[];

// Fills, sorts and filters the table of all rows.
extern const char kBatchScript[];

// Counts by verdict and by reason, and the angles' spread, in all and by group.
std::string CountTables(const BatchReport& report);

// A few failing and doubtful pairs of each reason, with their pictures.
std::string ExamplePairs(const BatchReport& report);

// The table of all rows, which the script fills from the data behind it.
std::string RowTable(const BatchReport& report);

} // namespace tools

#ifndef ORVEX_TOOLS_BATCH_ROW_H
#define ORVEX_TOOLS_BATCH_ROW_H

#include "basics/exit_codes.h"
#include "basics/json.h"
#include "batch/child.h"
#include "batch/list.h"

namespace tools {

// One result: a flat object whose keys are the columns, in their order, null where there is no value.
using BatchRow = Json;

// All columns in their order.
const std::vector<std::string>& BatchColumns();

// What the process that measured this pair has to say, whatever became of it.
BatchRow RowOf(const BatchItem& tItem, const ChildOutcome& tOutcome);

// What there is to say of a pair whose line in the list is at fault.
BatchRow FaultyRow(const BatchItem& t);

// With which such words begin: "line 3 of the list: "
std::string PlaceInList(const BatchItem& t);

// The row's exit code, as number or text; nothing if measure has no such answer.
std::optional<ExitCode> ExitIn(const BatchRow& tRow);

// Whether the row is this pair's.
bool IsRowOf(const BatchRow& tRow, const BatchItem& tItem);

} // namespace tools

#endif

#pragma once

#include "batch/result_sink.h"
#include "batch/results.h"
#include "batch/summary.h"

#include <chrono>

namespace tools {

struct BatchWork {
    const BatchList& tList;
    std::size_t nFirst;                // rows before it are there
    std::vector<std::string> aOptions; // for measure, about the pictures
    RowFormat tFormat;
    std::size_t nAtOnce;
    std::chrono::seconds tTimeLimit; // for each pair
    bool bProgress;                  // wanted, if there is a terminal for it
};

struct MeasuredRows {
    std::size_t nWritten; // of the list, with those that were there before
    int nSignal;          // that stopped it, or 0
};

// Measures each remaining pair in a process of its own. Rows are written in the list's order, as soon as all
// before them are; behind a slow pair only a few more are measured until it is done. Throws ToolError.
MeasuredRows MeasureRows(const BatchWork& tWork, ResultSink& tSink, BatchSummary& tSummary);

} // namespace tools

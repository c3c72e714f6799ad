#pragma once

#include "batch/result_sink.h"
#include "batch/results.h"
#include "batch/worker.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tools {

// The command that a batch's workers run: two file names, each ended by a zero byte, are answered by
// measure's object, until nothing more comes. With --show a third names the page to write, or is empty, and
// the answer is a thumbnail as a URL that carries it itself; measure's object where that failed.
constexpr char kMeasureEach[] = "measure-each";

struct BatchWork {
    const BatchList& tList;
    std::size_t nFirst;                // rows before it are there
    std::vector<std::string> aOptions; // for measure, about the pictures
    RowForm tForm;
    std::size_t nAtOnce;
    std::chrono::seconds tTimeLimit; // for each pair
    bool bProgress;                  // wanted, if there is a terminal for it
    // Each row with its place in the list, in the order in which they end.
    std::function<void(std::size_t, const BatchRow&)> Take;
};

std::unique_ptr<Worker> StartWorker(const BatchWork& tWork, const std::vector<std::string>& aFurther = {});

struct MeasuredRows {
    std::size_t nWritten; // of the list, with those that were there before
    int nSignal;          // that stopped it, or 0
};

// Measures the remaining pairs in processes apart, so that none can harm another. Rows are written in the
// list's order, as soon as all before them are; behind a slow pair only a few more are measured until it is
// done. Throws ToolError.
MeasuredRows MeasureRows(const BatchWork& tWork, ResultSink& tSink);

} // namespace tools

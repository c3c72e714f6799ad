#pragma once

#include "batch/list.h"
#include "batch/worker.h"
#include "measuring/verdict.h"

namespace tools {

// One result.
struct BatchRow : PairNames {
    const VerdictWords* pVerdict = nullptr;
    std::string strStatus, strCamera, strStage; // as measure tells them; empty where it told nothing
    std::string strWords;                       // what was, or was not, found
    std::string strWarnings;
    std::vector<std::string> aWarningKinds;      // as KeyOf has them
    std::vector<std::optional<double>> aNumbers; // as NumberColumns()
    std::string strProduct = {};                 // whose parameters measured it; empty for the library's own
    std::vector<std::string> aFurther = {};      // as the list has them
};

// What the process that measured this pair has to say, whatever became of it.
BatchRow RowOf(const BatchItem& tItem, const WorkerOutcome& tOutcome);

// What there is to say of a pair that the list keeps from being measured.
BatchRow FaultyRow(const BatchItem& tItem);

// Whether the row is this pair's.
bool IsRowOf(const BatchRow& tRow, const BatchItem& tItem);

} // namespace tools

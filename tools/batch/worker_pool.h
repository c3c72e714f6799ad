#pragma once

#include "batch/worker.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

namespace tools {

struct PoolWork {
    std::size_t nJobs; // numbered from 0
    std::size_t nAtOnce;
    std::size_t nAhead;              // a job starts less than that many behind the first that still runs
    std::chrono::seconds tTimeLimit; // for each; a worker that takes longer is killed
    std::function<std::unique_ptr<Worker>()> Start;
    std::function<std::vector<std::string>(std::size_t)> QuestionOf; // of a job
    std::function<void(std::size_t, const WorkerOutcome&)> Done;     // in the order in which they end
};

// Does all jobs by workers that do many each. One that ends costs its own job and is replaced. A signal that
// asks to stop lets no further job start, leaves those that run a moment to end, and is returned; otherwise
// 0.
int RunWorkers(const PoolWork& tWork);

} // namespace tools

#pragma once

#include "batch/child.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

namespace tools {

struct ChildWork {
    std::size_t nJobs; // numbered from 0
    std::size_t nAtOnce;
    std::size_t nAhead;              // a job starts less than that many behind the first that still runs
    std::chrono::seconds tTimeLimit; // for each; a child that takes longer is killed
    std::function<std::unique_ptr<Child>(std::size_t)> Start;
    std::function<void(std::size_t, const ChildOutcome&)> Done; // in the order in which they end
};

// Runs all of it. A signal that asks to stop lets no further child start, leaves those that run a moment to
// end, and is returned; otherwise 0.
int RunChildren(const ChildWork& tWork);

} // namespace tools

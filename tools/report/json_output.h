#pragma once

#include "basics/tool_error.h"
#include "report/report.h"

namespace tools {

// The report for programs: one object.
std::string JsonTextOf(const Report& report);

// In its place, what kept the pair from being measured: verdict, file, reason, advice, and all
// of it in one line.
std::string JsonTextOf(const ToolError& tError);

} // namespace tools

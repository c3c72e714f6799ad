#pragma once

#include "basics/tool_error.h"
#include "report/report.h"

namespace tools {

// The report for people.
std::string TextOf(const Report& report);

// The same in at most 20 lines: verdict, angles, warnings.
std::string BriefTextOf(const Report& report);

// The report for programs: one object.
std::string JsonTextOf(const Report& report);

// In its place, what kept the pair from being measured: verdict, file, reason, advice, and all
// of it in one line.
std::string JsonTextOf(const ToolError& tError);

// The report as one page for a browser that needs nothing else: both pictures, what
// was found in them, and every number.
std::string HtmlOf(const Report& report);

} // namespace tools

#pragma once

#include "report/report.h"

namespace tools {

// The report for programs: one object.
std::string JsonTextOf(const Report& report);

} // namespace tools

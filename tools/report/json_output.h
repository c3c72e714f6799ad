#ifndef ORVEX_TOOLS_REPORT_JSON_OUTPUT_H
#define ORVEX_TOOLS_REPORT_JSON_OUTPUT_H

#include "report/report.h"

namespace tools {

// The report for programs: one object.
std::string JsonTextOf(const Report& report);

} // namespace tools

#endif

#ifndef ORVEX_TOOLS_REPORT_TEXT_H
#define ORVEX_TOOLS_REPORT_TEXT_H

#include "report/report.h"

namespace tools {

// The report for people.
std::string TextOf(const Report& report);

} // namespace tools

#endif

#pragma once

#include "report/report.h"

namespace tools {

// The report as one page for a browser that needs nothing else: both pictures, what
// was found in them, and every number.
std::string HtmlOf(const Report& report);

} // namespace tools

#pragma once

#include "report/report.h"

namespace tools {

// The report for people.
std::string TextOf(const Report& report);

} // namespace tools

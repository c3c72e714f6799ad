#pragma once

namespace tools {

// Light and dark, wide and narrow.
extern const char kReportStyle[];

} // namespace tools

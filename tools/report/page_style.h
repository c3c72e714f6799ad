#ifndef ORVEX_TOOLS_REPORT_PAGE_STYLE_H
#define ORVEX_TOOLS_REPORT_PAGE_STYLE_H

namespace tools {

// Light and dark, wide and narrow.
extern const char kReportStyle[];

} // namespace tools

#endif

#ifndef ORVEX_TOOLS_REPORT_PAGE_SCRIPT_H
#define ORVEX_TOOLS_REPORT_PAGE_SCRIPT_H

namespace tools {

// Zooms and moves the pictures, shows and hides kinds of shapes. The page is complete without it.
extern const char kReportScript[];

} // namespace tools

#endif

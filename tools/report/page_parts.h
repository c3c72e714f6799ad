#pragma once

namespace tools {

// Light and dark, wide and narrow.
extern const char kReportStyle[];

// Zooms and moves the pictures, shows and hides kinds of shapes. The page is complete without it.
extern const char kReportScript[];

} // namespace tools

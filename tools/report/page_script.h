#pragma once

namespace tools {

// Zooms and moves the pictures, shows and hides kinds of shapes. The page is complete without it.
extern const char kReportScript[];

} // namespace tools

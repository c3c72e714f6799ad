#pragma once

#include "batch/measuring.h"
#include "batch_report/report.h"

namespace tools {

// Shows the failing and doubtful pairs once more, each by a process apart: pictures of the examples, and
// pages of all into strFolder, which is created, unless it is empty. A pair that cannot be shown again is
// left out. Adds to tShown; returns the signal that stopped it, or 0. Throws ToolError if the folder cannot
// be created.
int ShowPairs(const BatchWork& tWork, const ReportRows& tRows, const std::string& strFolder,
              std::map<std::size_t, ShownPair>& tShown);

// A folder as a link on the page strPage; empty for none.
std::string LinkTo(const std::string& strFolder, const std::string& strPage);

} // namespace tools

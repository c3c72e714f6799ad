#pragma once

#include "batch/list.h"

namespace tools {

// The pairs of two patterns, sorted by what the one * in each stands for, which is the pair's id. A picture
// without partner is an item that says so. Throws ToolError if no picture has one.
BatchList ListOfPatterns(const std::string& strMaster, const std::string& strSlave);

} // namespace tools

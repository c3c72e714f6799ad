#ifndef ORVEX_TOOLS_BATCH_WARNING_KINDS_H
#define ORVEX_TOOLS_BATCH_WARNING_KINDS_H

#include <string>
#include <vector>

namespace tools {

// All of a row's warnings in one cell.
std::string JoinedWarnings(const std::vector<std::string>& a);

// What each of them warns of, without what differs from row to row: N for every measured number, and no
// sides.
std::vector<std::string> WarningKinds(const std::string& strCell);

} // namespace tools

#endif

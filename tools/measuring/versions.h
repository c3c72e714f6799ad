#ifndef ORVEX_TOOLS_MEASURING_VERSIONS_H
#define ORVEX_TOOLS_MEASURING_VERSIONS_H

#include <string>

namespace tools {

constexpr char kToolVersion[] = "1.0.0";

// As the loaded library tells it.
std::string LibraryVersion();

} // namespace tools

#endif

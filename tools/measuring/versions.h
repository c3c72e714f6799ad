#pragma once

#include <string>

namespace tools {

// Of the release.
std::string ToolVersion();

// As the loaded library tells it; the same in every release.
std::string LibraryVersion();

} // namespace tools

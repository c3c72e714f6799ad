#pragma once

#include <string>

namespace tools {

constexpr char kToolVersion[] = "1.0.0";

// As the loaded library tells it.
std::string LibraryVersion();

} // namespace tools

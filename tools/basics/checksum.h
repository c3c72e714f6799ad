#pragma once

#include <string>
#include <string_view>

namespace tools {

// In hexadecimal, as sha256sum prints it; empty if there is no memory for it.
std::string Sha256Of(std::string_view strBytes);

} // namespace tools

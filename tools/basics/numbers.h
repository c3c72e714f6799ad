#pragma once

#include <optional>
#include <string>

namespace tools {

// A finite number in decimal notation, in whatever language the machine is set to; none for anything else.
std::optional<double> ParsedNumber(const std::string& str);

} // namespace tools

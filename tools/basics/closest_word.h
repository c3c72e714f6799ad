#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tools {

// The known word that was meant, where at most two letters are other, more or less.
std::optional<std::string> ClosestWord(const std::string& strTyped, const std::vector<std::string>& aKnown);

} // namespace tools

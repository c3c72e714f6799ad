#include "basics/numbers.h"

#include <charconv>
#include <cmath>

namespace tools {

std::optional<double> ParsedNumber(const std::string& str) {
    const char* const pEnd = str.data() + str.size();
    double d = 0;
    const auto [pRead, tError] = std::from_chars(str.data(), pEnd, d);
    if (tError != std::errc() || pRead != pEnd || !std::isfinite(d))
        return std::nullopt;
    return d;
}

} // namespace tools

#pragma once

#include <string>
#include <string_view>

namespace tools {

// Text for any place of a page, attributes in double quotes included, with harmless names: a page that turns
// its lines around misleads as a terminal does.
std::string Escaped(std::string_view str);

// Bytes as a URL that carries them itself.
std::string DataUrl(std::string_view strMediaType, std::string_view strBytes);

} // namespace tools

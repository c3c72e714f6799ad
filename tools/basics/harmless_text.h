#pragma once

#include <string>
#include <string_view>

namespace tools {

// Names, ids and a damaged file's words as people may see them: a question mark for each control character
// (line breaks among them), each mark that turns or breaks the line's direction, and each byte that is no
// UTF-8. What is left can neither command a terminal nor pass for a line or a word of the tool's own.
std::string Harmless(std::string_view str);

} // namespace tools

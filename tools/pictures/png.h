#pragma once

#include "pictures/picture.h"

#include <string_view>

namespace tools {

// Whether the bytes begin as a PNG picture does.
bool IsPng(std::string_view strBytes);

// Decodes a PNG picture of up to 8 bits per channel, interlaced or not. Colour becomes grey by libpng's
// default weights, 0.2126 red + 0.7152 green + 0.0722 blue, on the stored values: notes about gamma,
// primaries and profiles take no part, so that a picture's numbers do not depend on what an editor noted
// beside them. Grey values stay as they are. Transparency is dropped: a camera records none, and below it
// lies what it saw. Throws ToolError naming strFile.
Picture DecodePng(const std::string& strFile, std::string_view strBytes);

} // namespace tools

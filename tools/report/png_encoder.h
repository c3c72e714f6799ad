#pragma once

#include "pictures/picture.h"

namespace tools {

// The bytes of an 8-bit grey PNG file. Throws ToolError naming the picture.
std::string EncodePng(const Picture& picture);

} // namespace tools

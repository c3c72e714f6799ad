#pragma once

#include "pictures/picture.h"

#include <string>

namespace tools {

// Reads the plane that a file begins with. Throws ToolError.
Picture ReadRawPlane(const std::string& strFile, PictureSize tSize, bool bChecksum);

} // namespace tools

#pragma once

#include "pictures/picture.h"

namespace tools {

// Reads the plane that a frame of a YUV 4:2:0 or NV21 camera begins with; the colour behind it stays unread.
// Throws ToolError.
Picture ReadRawPicture(const std::string& strFile, PictureSize tSize);

} // namespace tools

#pragma once

#include "pictures/picture.h"

#include <string_view>

namespace tools {

// Whether the bytes begin as a JPEG picture does.
bool IsJpeg(std::string_view strBytes);

// Decodes a JPEG picture. Of colour only the luminance is kept that the camera itself stored beside it, by
// the format's rule 0.299 red + 0.587 green + 0.114 blue. Pixels are taken as they lie in the file: an
// orientation noted beside them takes no part. Throws ToolError naming strFile.
Picture DecodeJpeg(const std::string& strFile, std::string_view strBytes);

} // namespace tools

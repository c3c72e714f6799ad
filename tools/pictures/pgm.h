#pragma once

#include "pictures/picture.h"

#include <string_view>

namespace tools {

// Whether the bytes begin as a binary PGM picture does.
bool IsPgm(std::string_view strBytes);

// Decodes a PGM picture with 8 bits per pixel (P5, maxval 255). Throws ToolError naming strFile.
Picture DecodePgm(const std::string& strFile, std::string_view strBytes);

// nColumns * nRows bytes as a PGM picture.
std::string EncodePgm(int nColumns, int nRows, std::string_view strGrey);

} // namespace tools

#pragma once

#include "pictures/picture_size.h"

#include <optional>
#include <string>
#include <vector>

namespace tools {

// An 8-bit grey picture, row by row, and where it came from.
struct Picture {
    std::string strFile;
    int nColumns;
    int nRows;
    std::vector<unsigned char> aGrey;
    std::string strSha256 = {}; // of the file; empty unless it was asked for
    std::string strMisfit = {}; // what speaks against a size that was given by hand; empty for nothing

    PictureSize Size() const { return {nColumns, nRows}; }
};

// Reads a picture of a size that can be measured, of a format told by its content, whatever the file's name.
// With oRaw the file begins with a plane of that size and nothing tells its kind. Throws ToolError.
Picture ReadPicture(const std::string& strFile, std::optional<PictureSize> oRaw = std::nullopt,
                    bool bChecksum = false);

} // namespace tools

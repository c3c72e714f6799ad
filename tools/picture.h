#ifndef ORVEX_TOOLS_PICTURE_H
#define ORVEX_TOOLS_PICTURE_H

#include <string>

namespace tools {

// An 8-bit grey picture, row by row, and where it came from.
struct Picture {
    std::string strFile;
    int nColumns;
    int nRows;
    std::string strGrey;
};

// Reads a picture of a size that can be measured. Throws ToolError.
Picture ReadPicture(const std::string& strFile);

} // namespace tools

#endif

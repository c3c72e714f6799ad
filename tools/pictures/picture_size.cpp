#include "pictures/picture_size.h"

#include "basics/tool_error.h"

#include <fmt/format.h>

namespace tools {

std::string SizeText(PictureSize size) {
    return fmt::format("{} x {} px", size.nColumns, size.nRows);
}

std::size_t PixelsOf(PictureSize size) {
    return static_cast<std::size_t>(size.nColumns) * static_cast<std::size_t>(size.nRows);
}

PictureSize DecodableSize(const std::string& strFile, std::uint32_t nColumns, std::uint32_t nRows) {
    const bool bSides = nColumns >= 1 && nRows >= 1 && nColumns <= kMaxSide && nRows <= kMaxSide;
    if (!bSides || std::size_t{nColumns} * nRows > kMaxDecodedPixels)
        throw ToolError(
            strFile,
            fmt::format(
                "its header says {} x {} px, allowed are sides of 1 to {} px and at most {} px in all",
                nColumns, nRows, kMaxSide, kMaxDecodedPixels),
            "Record the picture again in its proper size");
    return {static_cast<int>(nColumns), static_cast<int>(nRows)};
}

} // namespace tools

#include "pictures/picture_size.h"

#include "basics/tool_error.h"

namespace tools {
namespace {

std::string Times(std::uint32_t nColumns, std::uint32_t nRows) {
    return std::to_string(nColumns) + " x " + std::to_string(nRows) + " px";
}

} // namespace

std::string SizeText(PictureSize size) {
    return Times(static_cast<std::uint32_t>(size.nColumns), static_cast<std::uint32_t>(size.nRows));
}

std::size_t PixelsOf(PictureSize size) {
    return static_cast<std::size_t>(size.nColumns) * static_cast<std::size_t>(size.nRows);
}

PictureSize DecodableSize(const std::string& strFile, std::uint32_t nColumns, std::uint32_t nRows) {
    const bool bSides = nColumns >= 1 && nRows >= 1 && nColumns <= kMaxSide && nRows <= kMaxSide;
    if (!bSides || std::size_t{nColumns} * nRows > kMaxDecodedPixels)
        throw ToolError(strFile,
                        "its header says " + Times(nColumns, nRows) + ", allowed are sides of 1 to " +
                            std::to_string(kMaxSide) + " px and at most " +
                            std::to_string(kMaxDecodedPixels) + " px in all",
                        "Record the picture again in its proper size");
    return {static_cast<int>(nColumns), static_cast<int>(nRows)};
}

} // namespace tools

#include "pictures/raw.h"

#include "basics/files.h"
#include "basics/tool_error.h"
#include "pictures/formats.h"

#include <fmt/format.h>

namespace tools {

Picture ReadRawPicture(const std::string& strFile, PictureSize tSize) {
    const std::size_t nNeeded = PixelsOf(tSize);
    const std::string strPlane = ReadStart(strFile, nNeeded);
    if (strPlane.size() < nNeeded)
        throw ToolError(strFile,
                        fmt::format("is too short for a raw plane: it holds {} bytes, {} need {}",
                                    strPlane.size(), SizeText(tSize), nNeeded),
                        "Give the size in which the frame was recorded; leave --raw out for " +
                            ListedFormats(&PictureFormat::szName, " and "));
    return {strFile, tSize.nColumns, tSize.nRows, {strPlane.begin(), strPlane.end()}};
}

} // namespace tools

#include "report/png_encoder.h"

#include "basics/tool_error.h"

#include <png.h>

namespace tools {

std::string EncodePng(const Picture& picture) {
    png_image tImage = {};
    tImage.version = PNG_IMAGE_VERSION;
    tImage.width = static_cast<png_uint_32>(picture.nColumns);
    tImage.height = static_cast<png_uint_32>(picture.nRows);
    tImage.format = PNG_FORMAT_GRAY;
    tImage.flags = PNG_IMAGE_FLAG_FAST; // photographs hardly shrink further
    png_alloc_size_t nBytes = PNG_IMAGE_PNG_SIZE_MAX(tImage);
    std::string strPng(nBytes, '\0');
    if (png_image_write_to_memory(&tImage, strPng.data(), &nBytes, 0, picture.aGrey.data(), picture.nColumns,
                                  nullptr) == 0)
        throw ToolError(picture.strFile,
                        std::string("cannot be put into the report (") + tImage.message + ")",
                        "Use a picture of the sensor's own size");
    strPng.resize(nBytes);
    return strPng;
}

} // namespace tools

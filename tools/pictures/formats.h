#pragma once

#include "pictures/jpeg.h"
#include "pictures/pgm.h"
#include "pictures/png.h"

#include <array>

namespace tools {

// A picture format that is read; reading, messages and help all go by this table.
struct PictureFormat {
    const char* szName;   // "PNG"
    const char* szCalled; // "an 8-bit binary PGM picture (P5)"
    const char* szLimits; // what of it is read: "PNG with up to 8 bits per channel"
    bool (*Begins)(std::string_view strBytes);
    Picture (*Decode)(const std::string& strFile, std::string_view strBytes); // throws ToolError
};
constexpr std::array<PictureFormat, 3> kPictureFormats = {{
    {"PNG", "a PNG", "PNG with up to 8 bits per channel", IsPng, DecodePng},
    {"JPEG", "a JPEG", "JPEG", IsJpeg, DecodeJpeg},
    {"PGM", "an 8-bit binary PGM picture (P5)", "binary PGM with 8 bits", IsPgm, DecodePgm},
}};

// By its first bytes; nullptr if they are no such picture's.
const PictureFormat* FormatOf(std::string_view strBytes);

// One member of all formats, apart by commas, with strLast before the last one.
std::string ListedFormats(const char* PictureFormat::*pMember, const std::string& strLast);

} // namespace tools

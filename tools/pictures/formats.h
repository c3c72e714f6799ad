#pragma once

#include "pictures/picture.h"

#include <array>
#include <string_view>

namespace tools {

// Whether the bytes begin as a PNG picture does.
bool IsPng(std::string_view strBytes);

// Decodes a PNG picture of up to 8 bits per channel, interlaced or not. Colour becomes grey by libpng's
// default weights, 0.2126 red + 0.7152 green + 0.0722 blue, on the stored values: notes about gamma,
// primaries and profiles take no part, so that a picture's numbers do not depend on what an editor noted
// beside them. Grey values stay as they are. Transparency is dropped: a camera records none, and below it
// lies what it saw. Throws ToolError naming strFile.
Picture DecodePng(const std::string& strFile, std::string_view strBytes);

// The bytes of an 8-bit grey PNG file. Throws ToolError naming the picture.
std::string EncodePng(const Picture& picture);

// Whether the bytes begin as a JPEG picture does.
bool IsJpeg(std::string_view strBytes);

// Decodes a JPEG picture. Of colour only the luminance is kept that the camera itself stored beside it, by
// the format's rule 0.299 red + 0.587 green + 0.114 blue. Pixels are taken as they lie in the file: an
// orientation noted beside them takes no part. Throws ToolError naming strFile.
Picture DecodeJpeg(const std::string& strFile, std::string_view strBytes);

// Whether the bytes begin as a binary PGM picture does.
bool IsPgm(std::string_view strBytes);

// Decodes a PGM picture with 8 bits per pixel (P5, maxval 255). Throws ToolError naming strFile.
Picture DecodePgm(const std::string& strFile, std::string_view strBytes);

// nColumns * nRows bytes as a PGM picture.
std::string EncodePgm(int nColumns, int nRows, std::string_view strGrey);

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

// One member of all formats, apart by commas, with szLast before the last one.
std::string ListedFormats(const char* PictureFormat::*pMember, const char* szLast);

} // namespace tools

#include "pictures/picture.h"

#include "basics/files.h"
#include "basics/tool_error.h"
#include "pictures/jpeg.h"
#include "pictures/pgm.h"
#include "pictures/png.h"
#include "pictures/raw.h"

#include <array>
#include <string_view>

namespace tools {
namespace {

struct Format {
    std::string_view strSignature;
    const char* szName;
};

constexpr std::array<Format, 6> aForeign = {{
    {"P2", "a PGM picture in text form (P2)"},
    {"P6", "a colour picture (PPM, P6)"},
    {"P3", "a colour picture in text form (PPM, P3)"},
    {"P4", "a black-and-white picture (PBM, P4)"},
    {"P1", "a black-and-white picture in text form (PBM, P1)"},
    {"BM", "a BMP picture"},
}};

std::string FormatOf(const std::string& strBytes) {
    if (strBytes.empty())
        return "empty";
    for (const Format& t : aForeign)
        if (strBytes.starts_with(t.strSignature))
            return t.szName;
    return "no picture of a known format";
}

// The largest header worth reading and the largest picture.
constexpr std::size_t nLimit = (std::size_t{1} << 16) + kMaxPixels;

const char* KindOf(const std::string& strBytes) {
    return IsPng(strBytes) ? "PNG" : IsJpeg(strBytes) ? "JPEG" : IsPgm(strBytes) ? "PGM" : nullptr;
}

void RefuseForeign(const std::string& strFile, const std::string& strStart) {
    if (KindOf(strStart) == nullptr)
        throw ToolError(
            strFile, "is " + FormatOf(strStart),
            "Name a PNG, a JPEG or an 8-bit binary PGM picture (P5), convert this one to PNG, or give "
            "the size of a raw plane with --raw");
}

// No camera's first pixels read like the start of a picture file, whose bytes would be measured as noise, or
// as a picture that is shifted by its header.
Picture ReadRawPlane(const std::string& strFile, PictureSize tSize) {
    Picture t = ReadRawPicture(strFile, tSize);
    if (const char* const szKind = KindOf(t.strGrey))
        throw ToolError(strFile, std::string("is a ") + szKind + " picture and no raw plane",
                        "Leave --raw out, or name raw planes");
    return t;
}

} // namespace

Picture ReadPicture(const std::string& strFile, std::optional<PictureSize> oRaw) {
    if (oRaw)
        return ReadRawPlane(strFile, *oRaw);
    std::string strBytes =
        ReadFile(strFile, nLimit, [&](const std::string& strStart) { RefuseForeign(strFile, strStart); });
    if (IsPng(strBytes))
        return DecodePng(strFile, strBytes);
    if (IsJpeg(strBytes))
        return DecodeJpeg(strFile, strBytes);
    return DecodePgm(strFile, std::move(strBytes));
}

} // namespace tools

#include "pictures/picture.h"

#include "basics/files.h"
#include "basics/tool_error.h"
#include "pictures/formats.h"

#include <array>
#include <fmt/format.h>
#include <string_view>

namespace tools {
namespace {

// Told by their first bytes, but not read.
struct ForeignFormat {
    std::string_view strSignature;
    const char* szName;
};
constexpr std::array<ForeignFormat, 6> kForeign = {{
    {"P2", "a PGM picture in text form (P2)"},
    {"P6", "a colour picture (PPM, P6)"},
    {"P3", "a colour picture in text form (PPM, P3)"},
    {"P4", "a black-and-white picture (PBM, P4)"},
    {"P1", "a black-and-white picture in text form (PBM, P1)"},
    {"BM", "a BMP picture"},
}};

std::string WordsFor(const std::string& strBytes) {
    if (strBytes.empty())
        return "empty";
    for (const ForeignFormat& t : kForeign)
        if (strBytes.starts_with(t.strSignature))
            return t.szName;
    return "no picture of a known format";
}

// The largest header worth reading and the largest picture.
constexpr std::size_t kLimit = (std::size_t{1} << 16) + kMaxPixels;

void RefuseForeign(const std::string& strFile, const std::string& strStart) {
    if (FormatOf(strStart) == nullptr)
        throw ToolError(strFile, "is " + WordsFor(strStart),
                        "Name " + ListedFormats(&PictureFormat::szCalled, " or ") +
                            ", convert this one to PNG, or give the size of a raw plane with --raw");
}

// The plane that a file begins with. No camera's first pixels read like the start of a picture file, whose
// bytes would be measured as noise, or as a picture that is shifted by its header.
Picture ReadRawPlane(const std::string& strFile, PictureSize tSize) {
    const std::size_t nNeeded = PixelsOf(tSize);
    const std::string strPlane = ReadStart(strFile, nNeeded);
    if (strPlane.size() < nNeeded)
        throw ToolError(strFile,
                        fmt::format("is too short for a raw plane: it holds {} bytes, {} need {}",
                                    strPlane.size(), SizeText(tSize), nNeeded),
                        "Give the size in which the frame was recorded; leave --raw out for " +
                            ListedFormats(&PictureFormat::szName, " and "));
    if (const PictureFormat* const pFormat = FormatOf(strPlane))
        throw ToolError(strFile, std::string("is a ") + pFormat->szName + " picture and no raw plane",
                        "Leave --raw out, or name raw planes");
    return {strFile, tSize.nColumns, tSize.nRows, {strPlane.begin(), strPlane.end()}};
}

} // namespace

Picture ReadPicture(const std::string& strFile, std::optional<PictureSize> oRaw) {
    if (oRaw)
        return ReadRawPlane(strFile, *oRaw);
    const std::string strBytes =
        ReadFile(strFile, kLimit, [&](const std::string& strStart) { RefuseForeign(strFile, strStart); });
    return FormatOf(strBytes)->Decode(strFile, strBytes);
}

} // namespace tools

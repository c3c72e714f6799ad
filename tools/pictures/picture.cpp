#include "pictures/picture.h"

#include "basics/checksum.h"
#include "basics/files.h"
#include "basics/tool_error.h"
#include "pictures/formats.h"
#include "pictures/raw.h"

#include <array>
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

} // namespace

Picture ReadPicture(const std::string& strFile, std::optional<PictureSize> oRaw, bool bChecksum) {
    if (oRaw)
        return ReadRawPlane(strFile, *oRaw, bChecksum);
    const std::string strBytes =
        ReadFile(strFile, kLimit, [&](const std::string& strStart) { RefuseForeign(strFile, strStart); });
    Picture tPicture = FormatOf(strBytes)->Decode(strFile, strBytes);
    if (bChecksum)
        tPicture.strSha256 = Sha256Of(strBytes);
    return tPicture;
}

} // namespace tools

#include "pictures/raw.h"

#include "basics/checksum.h"
#include "basics/files.h"
#include "basics/text_table.h"
#include "basics/tool_error.h"
#include "pictures/formats.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fmt/format.h>

namespace tools {
namespace {

// What camera modules deliver, as streams and as whole pictures.
constexpr std::array<PictureSize, 23> kUsualSizes = {
    {{1280, 720},  {1280, 960},  {1440, 810},  {1440, 1080}, {1600, 1200}, {1728, 972},
     {1920, 1080}, {1920, 1440}, {2048, 1536}, {2560, 1440}, {2592, 1458}, {2592, 1944},
     {2688, 1512}, {3264, 1836}, {3264, 2448}, {3840, 2160}, {4000, 3000}, {4032, 3024},
     {4096, 3072}, {4160, 3120}, {4208, 3120}, {4608, 3456}, {5184, 3888}}};

// A file of a grey plane, of a frame whose colours follow in a quarter of its size each, or in half.
bool IsFrameOf(PictureSize tSize, std::uintmax_t nBytes) {
    const std::uintmax_t nPixels = PixelsOf(tSize);
    return nBytes == nPixels || nBytes == nPixels + nPixels / 2 || nBytes == 2 * nPixels;
}

// "; 1920 x 1080 px fits its length", of usual sizes; nothing if none does.
std::string FittingSizes(std::uintmax_t nBytes) {
    std::vector<std::string> a;
    for (const PictureSize& t : kUsualSizes)
        if (IsFrameOf(t, nBytes))
            a.push_back(SizeText(t));
    return a.empty() ? "" : "; its length fits " + Listed(a, " or ");
}

// What speaks against the size that was given. A pipe's length is not known.
std::string MisfitOf(const std::string& strFile, PictureSize tSize) {
    std::error_code tError;
    const std::uintmax_t nBytes = std::filesystem::file_size(strFile, tError);
    if (tError || IsFrameOf(tSize, nBytes))
        return "";
    return fmt::format("the file's {} bytes are neither a plane of {} nor a frame with such a plane{}",
                       nBytes, SizeText(tSize), FittingSizes(nBytes));
}

} // namespace

// No camera's first pixels read like the start of a picture file, whose bytes would be measured as noise, or
// as a picture that is shifted by its header.
Picture ReadRawPlane(const std::string& strFile, PictureSize tSize, bool bChecksum) {
    const std::size_t nNeeded = PixelsOf(tSize);
    std::string strPlane, strSha256;
    if (bChecksum) {
        strPlane = ReadFile(strFile, 2 * kMaxGivenPixels);
        strSha256 = Sha256Of(strPlane);
    } else {
        strPlane = ReadStart(strFile, nNeeded);
    }
    strPlane.resize(std::min(strPlane.size(), nNeeded));
    if (strPlane.size() < nNeeded)
        throw ToolError(strFile,
                        fmt::format("is too short for a raw plane: it holds {} bytes, {} need {}{}",
                                    strPlane.size(), SizeText(tSize), nNeeded, FittingSizes(strPlane.size())),
                        "Give the size in which the frame was recorded; leave --raw out for " +
                            ListedFormats(&PictureFormat::szName, " and "));
    if (const PictureFormat* const pFormat = FormatOf(strPlane))
        throw ToolError(strFile, std::string("is a ") + pFormat->szName + " picture and no raw plane",
                        "Leave --raw out, or name raw planes");
    return {strFile,   tSize.nColumns,          tSize.nRows, {strPlane.begin(), strPlane.end()},
            strSha256, MisfitOf(strFile, tSize)};
}

} // namespace tools

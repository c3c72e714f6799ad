#include "pictures/formats.h"

#include "basics/tool_error.h"

#include <memory>
#include <new>
#include <turbojpeg.h>

namespace tools {
namespace {

struct Destroyer {
    void operator()(tjhandle p) const { tjDestroy(p); }
};
using Decoder = std::unique_ptr<void, Destroyer>;

Decoder NewDecoder() {
    Decoder p(tjInitDecompress());
    if (!p)
        throw std::bad_alloc();
    return p;
}

const unsigned char* Bytes(std::string_view str) {
    return reinterpret_cast<const unsigned char*>(str.data());
}

ToolError NotDecoded(const std::string& strFile, const Decoder& pDecoder) {
    return {strFile,
            std::string("is a JPEG picture that is cut off, damaged or of a rare kind (") +
                tjGetErrorStr2(pDecoder.get()) + ")",
            "Copy the picture again; if it stays so, record it as PNG or as plain 8-bit JPEG"};
}

PictureSize SizeOf(const std::string& strFile, std::string_view strBytes, const Decoder& pDecoder) {
    int nColumns = 0, nRows = 0, nSubsampling = 0, nColours = 0;
    if (tjDecompressHeader3(pDecoder.get(), Bytes(strBytes), strBytes.size(), &nColumns, &nRows,
                            &nSubsampling, &nColours) != 0)
        throw NotDecoded(strFile, pDecoder);
    if (nColumns < 1 || nRows < 1) // tables alone are a valid file, too
        throw ToolError(strFile, "is a JPEG picture that ends before its size",
                        "Copy or record the picture again");
    if (nColours == TJCS_CMYK || nColours == TJCS_YCCK)
        throw ToolError(strFile, "is a JPEG picture in printing colours (CMYK), which no camera records",
                        "Name the picture as it was recorded");
    return DecodableSize(strFile, static_cast<std::uint32_t>(nColumns), static_cast<std::uint32_t>(nRows));
}

} // namespace

bool IsJpeg(std::string_view strBytes) {
    return strBytes.starts_with("\xFF\xD8\xFF");
}

Picture DecodeJpeg(const std::string& strFile, std::string_view strBytes) {
    const Decoder pDecoder = NewDecoder();
    const PictureSize tSize = SizeOf(strFile, strBytes, pDecoder);
    std::vector<unsigned char> aGrey(PixelsOf(tSize));
    // A decoder that meets an end or a broken code fills up with grey and only warns: no picture to measure.
    if (tjDecompress2(pDecoder.get(), Bytes(strBytes), strBytes.size(), aGrey.data(), tSize.nColumns, 0,
                      tSize.nRows, TJPF_GRAY, TJFLAG_STOPONWARNING | TJFLAG_LIMITSCANS) != 0)
        throw NotDecoded(strFile, pDecoder);
    return {strFile, tSize.nColumns, tSize.nRows, std::move(aGrey)};
}

} // namespace tools

// The readers of PNG, JPEG, PGM and raw pictures. The input is the file.

#include "basics/tool_error.h"
#include "memory_file.h"
#include "pictures/picture.h"

#include <cstdint>
#include <cstring>
#include <turbojpeg.h>
#include <zlib.h>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* pBytes, std::size_t nBytes, std::size_t nMost);

using namespace fuzz;

namespace {

constexpr std::size_t nSlowPixels = 1u << 18;

std::uint32_t BigEndian(const std::uint8_t* p) {
    return std::uint32_t{p[0]} << 24 | std::uint32_t{p[1]} << 16 | std::uint32_t{p[2]} << 8 | p[3];
}

bool IsPng(const std::uint8_t* p, std::size_t n) {
    return n > 33 && std::memcmp(p, "\x89PNG", 4) == 0;
}

// Pictures of a size that is readable but only costs time.
bool IsSlow(const std::uint8_t* p, std::size_t n) {
    if (IsPng(p, n))
        return std::size_t{BigEndian(p + 16)} * BigEndian(p + 20) > nSlowPixels;
    int nColumns = 0, nRows = 0, nSampling = 0, nColours = 0;
    tjhandle pDecoder = tjInitDecompress();
    tjDecompressHeader3(pDecoder, p, n, &nColumns, &nRows, &nSampling, &nColours);
    tjDestroy(pDecoder);
    return std::int64_t{nColumns} * nRows > std::int64_t{nSlowPixels};
}

// A PNG decoder looks no further than a chunk whose checksum is wrong.
void MendChecksums(std::uint8_t* p, std::size_t n) {
    for (std::size_t i = 8; i + 12 <= n;) {
        const std::size_t nLength = BigEndian(p + i);
        if (nLength > n - i - 12)
            return;
        const auto nSum = static_cast<std::uint32_t>(crc32(0, p + i + 4, static_cast<uInt>(nLength + 4)));
        for (std::size_t k = 0; k < 4; ++k)
            p[i + 8 + nLength + k] = static_cast<std::uint8_t>(nSum >> (24 - 8 * k));
        i += nLength + 12;
    }
}

void Read(const std::string& strFile, std::optional<tools::PictureSize> oRaw) {
    try {
        const tools::Picture t = tools::ReadPicture(strFile, oRaw);
        Require(t.nColumns >= 1 && t.nRows >= 1 && t.nColumns <= tools::kMaxSide &&
                    t.nRows <= tools::kMaxSide && t.aGrey.size() == tools::PixelsOf({t.nColumns, t.nRows}),
                "a picture holds the pixels of its size");
    } catch (const tools::ToolError& t) {
        Require(std::strstr(t.what(), "\n  ") != nullptr, "an error says what to do");
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* pBytes, std::size_t nBytes, std::size_t nMost,
                                               unsigned int) {
    const std::size_t nNew = LLVMFuzzerMutate(pBytes, nBytes, nMost);
    if (IsPng(pBytes, nNew))
        MendChecksums(pBytes, nNew);
    return nNew;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    if (IsSlow(pBytes, nBytes))
        return -1;
    static const MemoryFile tFile;
    tFile.Hold({reinterpret_cast<const char*>(pBytes), nBytes});
    Read(tFile.Name(), std::nullopt);
    Read(tFile.Name(), tools::PictureSize{1 + static_cast<int>(nBytes % 64), 7});
    return 0;
}

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tools {

struct PictureSize {
    int nColumns;
    int nRows;
    bool operator==(const PictureSize&) const = default;
};

// What the library measures: each side from 1 px, and not more pixels than a signed 32-bit number counts.
constexpr int kMaxSide = 65535;
constexpr std::size_t kMaxPixels = 2147483647;

// Of a compressed picture, where a small file may claim one that fills the memory: far beyond any camera's.
constexpr std::size_t kMaxDecodedPixels = 400'000'000;

// Of a size that is given by hand: more than any module's sensor has.
constexpr std::size_t kMaxGivenPixels = 100'000'000;

// "1728 x 972 px"
std::string SizeText(PictureSize size);

// Bytes of the 8-bit plane. Both sides must lie in [1, kMaxSide].
std::size_t PixelsOf(PictureSize size);

// The size in a compressed picture's header, unless it is beyond the limits. Throws ToolError.
PictureSize DecodableSize(const std::string& strFile, std::uint32_t nColumns, std::uint32_t nRows);

} // namespace tools

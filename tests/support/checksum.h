#pragma once

#include <cstddef>
#include <cstdint>

namespace support {

constexpr std::uint64_t nEmptyChecksum = 0xCBF29CE484222325u; // FNV-1a

inline std::uint64_t AddedTo(std::uint64_t nHash, const void* pBytes, std::size_t nBytes) {
    const auto* const p = static_cast<const unsigned char*>(pBytes);
    for (std::size_t i = 0; i < nBytes; ++i)
        nHash = (nHash ^ p[i]) * 0x100000001B3u;
    return nHash;
}

} // namespace support

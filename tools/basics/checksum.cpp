#include "basics/checksum.h"

#include <array>
#include <fmt/ranges.h>
#include <psa/crypto.h>

namespace tools {

std::string Sha256Of(std::string_view strBytes) {
    std::array<unsigned char, PSA_HASH_LENGTH(PSA_ALG_SHA_256)> aDigest = {};
    std::size_t nLength = 0;
    const auto* const p = reinterpret_cast<const unsigned char*>(strBytes.data());
    if (psa_crypto_init() != PSA_SUCCESS ||
        psa_hash_compute(PSA_ALG_SHA_256, p, strBytes.size(), aDigest.data(), aDigest.size(), &nLength) !=
            PSA_SUCCESS)
        return "";
    return fmt::format("{:02x}", fmt::join(aDigest, ""));
}

} // namespace tools

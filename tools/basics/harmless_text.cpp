#include "basics/harmless_text.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tools {
namespace {

struct CodeRange {
    char32_t nFirst, nLast;
};

constexpr std::array<CodeRange, 8> kHarmful = {{
    {0x00, 0x1F},
    {0x7F, 0x9F},
    {0x061C, 0x061C}, // mark of direction, as the next one
    {0x200E, 0x200F},
    {0x2028, 0x202E},     // line and paragraph separator; embeddings and overrides of direction
    {0x2066, 0x2069},     // isolates of direction
    {0xD800, 0xDFFF},     // no characters, but halves of one in UTF-16
    {0x110000, 0x1FFFFF}, // no characters
}};

struct Character {
    std::size_t nBytes;
    bool bHarmless;
};

constexpr Character kNoCharacter = {1, false};

// The least code that needs so many bytes.
constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};

Character FirstOf(std::string_view str) {
    const auto nLead = static_cast<unsigned char>(str.front());
    const auto nOnes = static_cast<std::size_t>(std::countl_one(nLead));
    const std::size_t nBytes = nOnes == 0 ? 1 : nOnes;
    if (nOnes == 1 || nBytes > 4 || nBytes > str.size())
        return kNoCharacter;
    char32_t nCode = nLead & (0xFFu >> nOnes);
    for (const char c : str.substr(1, nBytes - 1)) {
        if ((c & 0xC0) != 0x80)
            return kNoCharacter;
        nCode = nCode << 6 | (static_cast<unsigned char>(c) & 0x3Fu);
    }
    if (nCode < kLeast[nBytes])
        return kNoCharacter;
    return {nBytes, std::ranges::none_of(
                        kHarmful, [&](const CodeRange& t) { return nCode >= t.nFirst && nCode <= t.nLast; })};
}

} // namespace

std::string Harmless(std::string_view str) {
    std::string strHarmless;
    while (!str.empty()) {
        const Character t = FirstOf(str);
        strHarmless += t.bHarmless ? str.substr(0, t.nBytes) : "?";
        str.remove_prefix(t.nBytes);
    }
    return strHarmless;
}

} // namespace tools

#include "report/html_text.h"

#include "basics/harmless_text.h"

#include <algorithm>
#include <array>
#include <mbedtls/base64.h>
#include <utility>

namespace tools {
namespace {

std::string Base64(std::string_view str) {
    std::size_t nLength = (str.size() + 2) / 3 * 4;
    std::string strText(nLength + 1, '\0'); // with the zero that it is ended by
    mbedtls_base64_encode(reinterpret_cast<unsigned char*>(strText.data()), strText.size(), &nLength,
                          reinterpret_cast<const unsigned char*>(str.data()), str.size());
    strText.resize(nLength);
    return strText;
}

// What a page would take for its own.
constexpr std::array<std::pair<char, const char*>, 4> kEntities = {
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}}};

} // namespace

std::string Escaped(std::string_view str) {
    std::string strText;
    for (const char c : Harmless(str)) {
        const auto p = std::ranges::find(kEntities, c, &std::pair<char, const char*>::first);
        strText += p != kEntities.end() ? p->second : std::string(1, c);
    }
    return strText;
}

std::string DataUrl(std::string_view strMediaType, std::string_view strBytes) {
    return "data:" + std::string(strMediaType) + ";base64," + Base64(strBytes);
}

} // namespace tools

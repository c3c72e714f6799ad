#include "report/html_text.h"

#include "basics/harmless_text.h"

namespace tools {
namespace {

unsigned int ByteAt(std::string_view str, std::size_t n) {
    return n < str.size() ? static_cast<unsigned char>(str[n]) : 0;
}

std::string Base64(std::string_view str) {
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string strText;
    strText.reserve((str.size() + 2) / 3 * 4);
    for (std::size_t n = 0; n < str.size(); n += 3) {
        const unsigned int nGroup = ByteAt(str, n) << 16 | ByteAt(str, n + 1) << 8 | ByteAt(str, n + 2);
        for (int nShift = 18; nShift >= 0; nShift -= 6)
            strText += kDigits[nGroup >> nShift & 63];
    }
    for (std::size_t nMissing = (3 - str.size() % 3) % 3; nMissing > 0; --nMissing)
        strText[strText.size() - nMissing] = '=';
    return strText;
}

} // namespace

std::string Escaped(std::string_view str) {
    std::string strText;
    for (const char c : Harmless(str))
        switch (c) {
        case '&':
            strText += "&amp;";
            break;
        case '<':
            strText += "&lt;";
            break;
        case '>':
            strText += "&gt;";
            break;
        case '"':
            strText += "&quot;";
            break;
        default:
            strText += c;
        }
    return strText;
}

std::string DataUrl(std::string_view strMediaType, std::string_view strBytes) {
    return "data:" + std::string(strMediaType) + ";base64," + Base64(strBytes);
}

} // namespace tools

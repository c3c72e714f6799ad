#include "pictures/formats.h"

#include "basics/tool_error.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>

namespace tools {
namespace {

constexpr std::string_view kWordEnds = "# \t\n\v\f\r";
constexpr std::string_view kSpaces = kWordEnds.substr(1);

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Walks through the header's words. Comments reach from # to the end of their line.
class Header {
public:
    Header(const std::string& strFile, std::string_view strBytes) : m_strFile(strFile), m_str(strBytes) {}

    // The number must lie in [1, nLimit].
    int Number(const char* szName, int nLimit) {
        const std::string_view str = Word();
        if (str.empty())
            throw ToolError(m_strFile, std::string("ends before its ") + szName,
                            "Copy or record the picture again");
        if (!std::ranges::all_of(str, IsDigit))
            throw ToolError(m_strFile, Named(szName, str) + " is not a number", "Record the picture again");
        // Longer words are beyond any limit, whatever their value.
        const std::int64_t n = str.size() < 10 ? std::stoll(std::string(str)) : INT64_MAX;
        if (n < 1 || n > nLimit)
            throw ToolError(m_strFile, fmt::format("{} is not within 1 to {}", Named(szName, str), nLimit),
                            "Record the picture again in its proper size and with 8 bits per pixel");
        return static_cast<int>(n);
    }

    // Where the pixels start: behind one white space.
    std::size_t End() const { return std::min(m_nPos + 1, m_str.size()); }

private:
    static std::string Named(const char* szName, std::string_view str) {
        return fmt::format("{} \"{}\"", szName, str.substr(0, 24));
    }

    void MoveTo(std::size_t nPos) { m_nPos = std::min(nPos, m_str.size()); }

    void SkipGap() {
        MoveTo(m_str.find_first_not_of(kSpaces, m_nPos));
        while (m_nPos < m_str.size() && m_str[m_nPos] == '#') {
            MoveTo(m_str.find('\n', m_nPos));
            MoveTo(m_str.find_first_not_of(kSpaces, m_nPos));
        }
    }

    std::string_view Word() {
        SkipGap();
        const std::size_t nStart = m_nPos;
        MoveTo(m_str.find_first_of(kWordEnds, nStart));
        return m_str.substr(nStart, m_nPos - nStart);
    }

    const std::string& m_strFile;
    std::string_view m_str;
    std::size_t m_nPos = 2; // behind "P5"
};

void RequireEightBits(const std::string& strFile, int nMaximum) {
    if (nMaximum == 255)
        return;
    throw ToolError(strFile,
                    fmt::format("{}its largest grey value is {}, needed is 255",
                                nMaximum > 255 ? "has 16 bits per pixel: " : "", nMaximum),
                    nMaximum > 255 ? "Convert it to 8 bits per pixel"
                                   : "Scale its grey values so that white is 255, and write 255 into the "
                                     "header as the largest one");
}

void RequirePixels(const std::string& strFile, PictureSize tSize, std::size_t nHeld) {
    const std::size_t nNeeded = PixelsOf(tSize);
    const std::string strSize = "its header says " + SizeText(tSize);
    if (nNeeded > kMaxPixels)
        throw ToolError(strFile,
                        fmt::format("{}, which is above the limit of {} pixels", strSize, kMaxPixels),
                        "Record the picture again in its proper size");
    if (nHeld < nNeeded)
        throw ToolError(strFile,
                        fmt::format("is cut off: {} = {} bytes of pixels, of which the file holds {}",
                                    strSize, nNeeded, nHeld),
                        "Copy or record the picture again");
    if (nHeld > nNeeded)
        throw ToolError(strFile,
                        fmt::format("does not fit its header: {}, but {} bytes follow the last pixel",
                                    strSize, nHeld - nNeeded),
                        "Check the size in the header, or record the picture again");
}

} // namespace

bool IsPgm(std::string_view strBytes) {
    return strBytes.starts_with("P5") &&
           (strBytes.size() == 2 || kWordEnds.find(strBytes[2]) != kWordEnds.npos);
}

Picture DecodePgm(const std::string& strFile, std::string_view strBytes) {
    Header tHeader(strFile, strBytes);
    const int nColumns = tHeader.Number("width", kMaxSide);
    const int nRows = tHeader.Number("height", kMaxSide);
    RequireEightBits(strFile, tHeader.Number("largest grey value", 65535));
    const std::size_t nStart = tHeader.End();
    RequirePixels(strFile, {nColumns, nRows}, strBytes.size() - nStart);
    return {
        strFile, nColumns, nRows, {strBytes.begin() + static_cast<std::ptrdiff_t>(nStart), strBytes.end()}};
}

std::string EncodePgm(int nColumns, int nRows, std::string_view strGrey) {
    return fmt::format("P5\n{} {}\n255\n{}", nColumns, nRows, strGrey);
}

} // namespace tools

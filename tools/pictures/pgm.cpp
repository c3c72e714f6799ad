#include "pictures/formats.h"

#include "basics/tool_error.h"

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>

namespace tools {
namespace {

constexpr std::string_view kWordEnds = "# \t\n\v\f\r";
constexpr std::string_view kSpaces = kWordEnds.substr(1);

// The header's next word, behind white space and comments, which reach from # to the end of their line. What
// follows it is left.
std::string_view NextWord(std::string_view& strRest) {
    const auto SkipTo = [&](std::size_t n) { strRest.remove_prefix(std::min(n, strRest.size())); };
    for (SkipTo(strRest.find_first_not_of(kSpaces)); strRest.starts_with('#');
         SkipTo(strRest.find_first_not_of(kSpaces)))
        SkipTo(strRest.find('\n'));
    const std::string_view strWord = strRest.substr(0, strRest.find_first_of(kWordEnds));
    SkipTo(strWord.size());
    return strWord;
}

// The number must lie in [1, nLimit].
int NextNumber(const std::string& strFile, std::string_view& strRest, const char* szName, int nLimit) {
    const std::string_view str = NextWord(strRest);
    const std::string strNamed = fmt::format("{} \"{}\"", szName, str.substr(0, 24));
    if (str.empty())
        throw ToolError(strFile, std::string("ends before its ") + szName,
                        "Copy or record the picture again");
    if (str.find_first_not_of("0123456789") != str.npos)
        throw ToolError(strFile, strNamed + " is not a number", "Record the picture again");
    // Longer words are beyond any limit, whatever their value.
    const std::int64_t n = str.size() < 10 ? std::stoll(std::string(str)) : INT64_MAX;
    if (n < 1 || n > nLimit)
        throw ToolError(strFile, fmt::format("{} is not within 1 to {}", strNamed, nLimit),
                        "Record the picture again in its proper size and with 8 bits per pixel");
    return static_cast<int>(n);
}

void RequireEightBits(const std::string& strFile, int nMaximum) {
    if (nMaximum == 255)
        return;
    throw ToolError(
        strFile,
        fmt::format("{}its largest grey value is {}, needed is 255",
                    nMaximum > 255 ? "has 16 bits per pixel: " : "", nMaximum),
        nMaximum > 255
            ? "Convert it to 8 bits per pixel"
            : "Scale its grey values so that white is 255, and write 255 into the header as the largest one");
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
    std::string_view strRest = strBytes.substr(2); // behind "P5"
    const int nColumns = NextNumber(strFile, strRest, "width", kMaxSide);
    const int nRows = NextNumber(strFile, strRest, "height", kMaxSide);
    RequireEightBits(strFile, NextNumber(strFile, strRest, "largest grey value", 65535));
    strRest.remove_prefix(std::min<std::size_t>(1, strRest.size())); // one white space
    RequirePixels(strFile, {nColumns, nRows}, strRest.size());
    const auto* const pGrey = reinterpret_cast<const unsigned char*>(strRest.data());
    return {strFile, nColumns, nRows, {pGrey, pGrey + strRest.size()}};
}

std::string EncodePgm(int nColumns, int nRows, std::string_view strGrey) {
    return fmt::format("P5\n{} {}\n255\n{}", nColumns, nRows, strGrey);
}

} // namespace tools

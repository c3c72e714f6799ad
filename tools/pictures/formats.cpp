#include "pictures/formats.h"

#include <algorithm>

namespace tools {

const PictureFormat* FormatOf(std::string_view strBytes) {
    const auto p =
        std::ranges::find_if(kPictureFormats, [&](const PictureFormat& t) { return t.Begins(strBytes); });
    return p != kPictureFormats.end() ? &*p : nullptr;
}

std::string ListedFormats(const char* PictureFormat::*pMember, const std::string& strLast) {
    std::string str = kPictureFormats.front().*pMember;
    for (std::size_t i = 1; i < kPictureFormats.size(); ++i)
        str += (i + 1 < kPictureFormats.size() ? ", " : strLast) + kPictureFormats[i].*pMember;
    return str;
}

} // namespace tools

#include "pictures/formats.h"

#include "basics/text_table.h"

#include <algorithm>

namespace tools {

const PictureFormat* FormatOf(std::string_view strBytes) {
    const auto p =
        std::ranges::find_if(kPictureFormats, [&](const PictureFormat& t) { return t.Begins(strBytes); });
    return p != kPictureFormats.end() ? &*p : nullptr;
}

std::string ListedFormats(const char* PictureFormat::*pMember, const char* szLast) {
    std::vector<std::string> a(kPictureFormats.size());
    std::ranges::transform(kPictureFormats, a.begin(), pMember);
    return Listed(a, szLast);
}

} // namespace tools

#include "record/warnings.h"

#include "basics/text_table.h"

#include <algorithm>
#include <iterator>

namespace tools {
namespace {

std::string VersionText(int nMajor, int nMinor) {
    return std::to_string(nMajor) + "." + std::to_string(nMinor);
}

std::string OfVersion(const _AFPROTECT& t) {
    if (t.ubVersionMajor == AF_ProtectVersion[0] && t.ubVersionMinor == AF_ProtectVersion[1])
        return "";
    return "the version, which is not encrypted, is " + VersionText(t.ubVersionMajor, t.ubVersionMinor) +
           "; this library writes " + VersionText(AF_ProtectVersion[0], AF_ProtectVersion[1]) + ".";
}

// The reader takes some headers that no measurement writes.
std::string OfHeader(const std::string& strHeader) {
    std::vector<std::string> aPlaces;
    for (std::size_t i = 0; i < std::min(strHeader.size(), kMeasuredHeader.size()); ++i)
        if (strHeader[i] != kMeasuredHeader[i])
            aPlaces.push_back(std::to_string(kHeaderAt + i));
    return aPlaces.empty() ? ""
                           : "the container's header is not as a measurement writes it; it differs in the "
                             "file's bytes, counted from 0: " +
                                 Listed(aPlaces) + ".";
}

std::string OfReserved(const _AFPROTECT& t) {
    const std::size_t nAll = std::size(t.aubReserved);
    const auto nSet = static_cast<std::size_t>(
        std::ranges::count_if(t.aubReserved, [](unsigned char ub) { return ub != 0; }));
    return nSet == 0 ? ""
                     : std::to_string(nSet) + " of the " + std::to_string(nAll) +
                           " reserved bytes, which the checksum does not cover, are not zero.";
}

std::string OfFurther(const std::string& strFurther) {
    return strFurther.empty() ? ""
                              : std::to_string(strFurther.size()) +
                                    " bytes follow the known fields; a measurement writes none there.";
}

} // namespace

std::vector<std::string> WarningsOf(const RecordReading& t) {
    if (!t.oRecord)
        return {};
    std::vector<std::string> a = {OfVersion(*t.oRecord), OfHeader(t.strHeader), OfReserved(*t.oRecord),
                                  OfFurther(t.strFurther)};
    std::erase(a, "");
    return a;
}

} // namespace tools

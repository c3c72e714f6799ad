#include "record/warnings.h"

#include "basics/text_table.h"

#include <algorithm>

namespace tools {
namespace {

std::string VersionText(RecordVersion tVersion) {
    return std::to_string(tVersion.nMajor) + "." + std::to_string(tVersion.nMinor);
}

std::string OfVersion(RecordVersion tVersion) {
    return tVersion == WrittenVersion() ? ""
                                        : "the version, which is not encrypted, is " + VersionText(tVersion) +
                                              "; this library writes " + VersionText(WrittenVersion()) + ".";
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

std::string OfReserved(const std::string& strReserved) {
    const auto nSet = strReserved.size() - static_cast<std::size_t>(std::ranges::count(strReserved, '\0'));
    return nSet == 0 ? ""
                     : std::to_string(nSet) + " of the " + std::to_string(strReserved.size()) +
                           " reserved bytes, which the checksum does not cover, are not zero.";
}

std::string OfFurther(const std::string& strFurther) {
    return strFurther.empty() ? ""
                              : std::to_string(strFurther.size()) +
                                    " bytes follow the known fields; a measurement writes none there.";
}

} // namespace

std::vector<std::string> WarningsOf(const RecordReading& tReading) {
    if (!tReading.oRecord)
        return {};
    const RecordFields& tRecord = *tReading.oRecord;
    std::vector<std::string> a = {OfVersion(tRecord.tVersion), OfHeader(tReading.strHeader),
                                  OfReserved(tRecord.strReserved), OfFurther(tRecord.strFurther)};
    std::erase(a, "");
    return a;
}

} // namespace tools

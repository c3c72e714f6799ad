#include "basics/tool_error.h"
#include "study/rendered_pair.h"
#include "study/study_pairs.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>

namespace tools {
namespace {

namespace fs = std::filesystem;

// Noise is what compresses least.
std::uintmax_t BytesOfLargestPair(const Study& tStudy) {
    StudyPair tPair = PairOf(tStudy, tStudy.Pairs() - 1);
    tPair.tOptions.dNoise = tStudy.oMaxNoise.value_or(tPair.tOptions.dNoise);
    std::uintmax_t nBytes = ListLineOf(tPair).size();
    for (const NewFile& t : RenderedFiles(tPair.tOptions, FilesOf(tStudy, tPair), tPair.nCalibrationSeed))
        nBytes += t.strBytes.size();
    return nBytes;
}

std::uintmax_t BytesThere(const std::string& strFolder) {
    std::uintmax_t nBytes = 0;
    std::error_code tError; // what cannot be read takes no room
    for (const fs::directory_entry& t :
         fs::recursive_directory_iterator(strFolder, fs::directory_options::skip_permission_denied, tError))
        nBytes += t.is_regular_file(tError) ? t.file_size(tError) : 0;
    return nBytes;
}

// Of the nearest folder that is there; without bound where the system does not tell.
std::uintmax_t BytesFree(const std::string& strFolder) {
    std::error_code tError;
    fs::path t = fs::absolute(strFolder, tError);
    while (!fs::exists(t, tError) && t.has_relative_path())
        t = t.parent_path();
    return fs::space(t, tError).available; // the largest number on an error
}

} // namespace

StudyRoom RoomFor(const Study& tStudy) {
    const StudyRoom t = {tStudy.Pairs() * BytesOfLargestPair(tStudy), BytesFree(tStudy.strFolder)};
    if (t.nNeeded > t.nFree && t.nNeeded - std::min(BytesThere(tStudy.strFolder), t.nNeeded) > t.nFree)
        throw ToolError(tStudy.strFolder,
                        fmt::format("has {} of room, but {} pairs take {}", RoomText(t.nFree), tStudy.Pairs(),
                                    RoomText(t.nNeeded)),
                        "Make room, render fewer or smaller pairs, or name a folder elsewhere");
    return t;
}

std::string RoomText(std::uintmax_t nBytes) {
    const double dMegabytes = static_cast<double>(nBytes) / 1e6;
    return dMegabytes < 1000 ? fmt::format("{:.1f} MB", dMegabytes)
                             : fmt::format("{:.1f} GB", dMegabytes / 1000);
}

} // namespace tools

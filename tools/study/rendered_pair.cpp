#include "study/rendered_pair.h"

#include "pictures/formats.h"
#include "study/notes.h"
#include "study/replacement.h"

#include <algorithm>

namespace tools {
namespace {

std::string Encoded(const std::string& strFile, const std::string& strFormat, const chart::Shot& t) {
    if (strFormat == "png")
        return EncodePng({strFile, t.nWidth, t.nHeight, t.aGrey});
    return EncodePgm(t.nWidth, t.nHeight, {reinterpret_cast<const char*>(t.aGrey.data()), t.aGrey.size()});
}

} // namespace

std::vector<NewFile> RenderedFiles(const PairOptions& tOptions, const PairFiles& tFiles,
                                   std::uint64_t nCalibrationSeed) {
    const chart::Pair tPair = chart::RenderPair(SetupOf(tOptions));
    std::vector<NewFile> aFiles = {
        {tFiles.strMaster, Encoded(tFiles.strMaster, tOptions.strFormat, tPair.tMaster)},
        {tFiles.strSlave, Encoded(tFiles.strSlave, tOptions.strFormat, tPair.tSlave)}};
    std::ranges::move(NotesOf(tOptions, tFiles, nCalibrationSeed), std::back_inserter(aFiles));
    return aFiles;
}

PairFiles WritePair(const std::string& strFolder, const PairOptions& tOptions, bool bOverwrite) {
    PairFiles tFiles(strFolder, tOptions.strFormat);
    const std::vector<NewFile> aFiles = RenderedFiles(tOptions, tFiles, tOptions.nSeed);
    if (!bOverwrite)
        RefuseToReplace(aFiles);
    CreateFolder(strFolder);
    WriteFiles(aFiles);
    return tFiles;
}

} // namespace tools

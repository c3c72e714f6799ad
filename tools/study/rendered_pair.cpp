#include "study/rendered_pair.h"

#include "pictures/formats.h"
#include "study/notes.h"
#include "study/replacement.h"

#include <algorithm>

namespace tools {
namespace {

std::string PgmOf(const chart::Shot& t) {
    return EncodePgm(t.nWidth, t.nHeight, {reinterpret_cast<const char*>(t.aGrey.data()), t.aGrey.size()});
}

} // namespace

std::vector<NewFile> RenderedFiles(const PairOptions& tOptions, const PairFiles& tFiles,
                                   std::uint64_t nCalibrationSeed) {
    const chart::Pair tPair = chart::RenderPair(SetupOf(tOptions));
    std::vector<NewFile> aFiles = {{tFiles.strMaster, PgmOf(tPair.tMaster)},
                                   {tFiles.strSlave, PgmOf(tPair.tSlave)}};
    std::ranges::move(NotesOf(tOptions, tFiles, nCalibrationSeed), std::back_inserter(aFiles));
    return aFiles;
}

PairFiles WritePair(const std::string& strFolder, const PairOptions& tOptions, bool bOverwrite) {
    PairFiles tFiles(strFolder);
    const std::vector<NewFile> aFiles = RenderedFiles(tOptions, tFiles, tOptions.nSeed);
    if (!bOverwrite)
        RefuseToReplace(aFiles);
    CreateFolder(strFolder);
    WriteFiles(aFiles);
    return tFiles;
}

} // namespace tools

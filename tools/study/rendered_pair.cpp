#include "study/rendered_pair.h"

#include "measuring/calibration.h"
#include "measuring/truth.h"
#include "pictures/pgm.h"
#include "study/replacement.h"

#include <algorithm>

namespace tools {
namespace {

std::string PgmOf(const chart::Shot& t) {
    return EncodePgm(t.nWidth, t.nHeight, {reinterpret_cast<const char*>(t.aGrey.data()), t.aGrey.size()});
}

bool HoldsPicture(const std::string& strFile, const chart::Camera& t) {
    std::error_code tNotThere;
    const std::size_t nSize = EncodePgm(t.nWidth, t.nHeight, "").size() + PixelsOf({t.nWidth, t.nHeight});
    return std::filesystem::file_size(strFile, tNotThere) == nSize && !tNotThere;
}

} // namespace

std::vector<NewFile> NotesOf(const chart::PairSetup& tSetup, const PairFiles& tFiles,
                             std::uint64_t nCalibrationSeed) {
    return {{tFiles.strTruth, TruthJson(tSetup).dump(2) + "\n"},
            {tFiles.strCalibration, MadeUpCalibration(nCalibrationSeed)}};
}

std::vector<NewFile> RenderedFiles(const chart::PairSetup& tSetup, const PairFiles& tFiles,
                                   std::uint64_t nCalibrationSeed) {
    const chart::Pair tPair = chart::RenderPair(tSetup);
    std::vector<NewFile> aFiles = {{tFiles.strMaster, PgmOf(tPair.tMaster)},
                                   {tFiles.strSlave, PgmOf(tPair.tSlave)}};
    std::ranges::move(NotesOf(tSetup, tFiles, nCalibrationSeed), std::back_inserter(aFiles));
    return aFiles;
}

bool IsWritten(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed) {
    return HoldsPicture(tFiles.strMaster, tSetup.tMaster) && HoldsPicture(tFiles.strSlave, tSetup.tSlave) &&
           std::ranges::all_of(NotesOf(tSetup, tFiles, nCalibrationSeed), Holds);
}

} // namespace tools

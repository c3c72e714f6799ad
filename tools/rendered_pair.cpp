#include "rendered_pair.h"

#include "calibration.h"
#include "files.h"
#include "pgm.h"
#include "truth.h"

namespace tools {
namespace {

std::string PgmOf(const chart::Shot& t) {
    return EncodePgm(t.nWidth, t.nHeight, {reinterpret_cast<const char*>(t.aGrey.data()), t.aGrey.size()});
}

} // namespace

void WritePair(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed) {
    const chart::Pair tPair = chart::RenderPair(tSetup);
    WriteFiles({{tFiles.strMaster, PgmOf(tPair.tMaster)},
                {tFiles.strSlave, PgmOf(tPair.tSlave)},
                {tFiles.strTruth, TruthJson(tSetup, tPair).dump(2) + "\n"},
                {tFiles.strCalibration, MadeUpCalibration(nCalibrationSeed)}});
}

} // namespace tools

#include "rendered_pair.h"

#include "calibration.h"
#include "files.h"
#include "pgm.h"
#include "tool_error.h"
#include "truth.h"

namespace tools {
namespace {

std::string PgmOf(const chart::Shot& t) {
    return EncodePgm(t.nWidth, t.nHeight, {reinterpret_cast<const char*>(t.aGrey.data()), t.aGrey.size()});
}

std::string TruthText(const chart::PairSetup& t) {
    return TruthJson(t).dump(2) + "\n";
}

bool Holds(const std::string& strFile, const std::string& strBytes) {
    try {
        return ReadFile(strFile, strBytes.size()) == strBytes;
    } catch (const ToolError&) { // not there, or larger
        return false;
    }
}

bool HoldsPicture(const std::string& strFile, const chart::Camera& t) {
    std::error_code tNotThere;
    const std::size_t nSize = EncodePgm(t.nWidth, t.nHeight, "").size() + PixelsOf({t.nWidth, t.nHeight});
    return std::filesystem::file_size(strFile, tNotThere) == nSize && !tNotThere;
}

} // namespace

void WritePair(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed) {
    const chart::Pair tPair = chart::RenderPair(tSetup);
    WriteFiles({{tFiles.strMaster, PgmOf(tPair.tMaster)},
                {tFiles.strSlave, PgmOf(tPair.tSlave)},
                {tFiles.strTruth, TruthText(tSetup)},
                {tFiles.strCalibration, MadeUpCalibration(nCalibrationSeed)}});
}

bool IsWritten(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed) {
    return HoldsPicture(tFiles.strMaster, tSetup.tMaster) && HoldsPicture(tFiles.strSlave, tSetup.tSlave) &&
           Holds(tFiles.strTruth, TruthText(tSetup)) &&
           Holds(tFiles.strCalibration, MadeUpCalibration(nCalibrationSeed));
}

} // namespace tools

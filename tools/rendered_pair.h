#ifndef ORVEX_TOOLS_RENDERED_PAIR_H
#define ORVEX_TOOLS_RENDERED_PAIR_H

#include "chart/pair.h"

#include <filesystem>
#include <string>

namespace tools {

// Where a rendered pair lies.
struct PairFiles {
    explicit PairFiles(const std::filesystem::path& tFolder)
        : strMaster(tFolder / "master.pgm"), strSlave(tFolder / "slave.pgm"),
          strTruth(tFolder / "truth.json"), strCalibration(tFolder / "calibration.bin") {}
    std::string strMaster, strSlave, strTruth, strCalibration;
};

// Renders the pair and writes its four files, all or none. Throws ToolError.
void WritePair(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed);

// Whether these four files are there whole: truth and calibration byte by byte, the pictures by their sizes.
bool IsWritten(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed);

} // namespace tools

#endif

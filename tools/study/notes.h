#pragma once

#include "basics/files.h"
#include "study/pair_options.h"

#include <filesystem>

namespace tools {

// Where a rendered pair lies.
struct PairFiles {
    PairFiles(const std::filesystem::path& tFolder, const std::string& strFormat)
        : strFolder(tFolder), strMaster(tFolder / ("master." + strFormat)),
          strSlave(tFolder / ("slave." + strFormat)), strTruth(tFolder / "truth.json"),
          strCalibration(tFolder / "calibration.bin") {}
    std::string strFolder, strMaster, strSlave, strTruth, strCalibration;
};

// The pair's truth and calibration. The truth tells all that the pictures are rendered with.
std::vector<NewFile> NotesOf(const PairOptions& tOptions, const PairFiles& tFiles,
                             std::uint64_t nCalibrationSeed);

} // namespace tools

#ifndef ORVEX_TOOLS_STUDY_RENDERED_PAIR_H
#define ORVEX_TOOLS_STUDY_RENDERED_PAIR_H

#include "basics/files.h"
#include "chart/pair.h"

#include <filesystem>

namespace tools {

// Where a rendered pair lies.
struct PairFiles {
    explicit PairFiles(const std::filesystem::path& tFolder)
        : strMaster(tFolder / "master.pgm"), strSlave(tFolder / "slave.pgm"),
          strTruth(tFolder / "truth.json"), strCalibration(tFolder / "calibration.bin") {}
    std::string strMaster, strSlave, strTruth, strCalibration;
};

// The pair's truth and calibration. The truth tells all that the pictures are rendered with.
std::vector<NewFile> NotesOf(const chart::PairSetup& tSetup, const PairFiles& tFiles,
                             std::uint64_t nCalibrationSeed);

// All four files, with the pictures rendered.
std::vector<NewFile> RenderedFiles(const chart::PairSetup& tSetup, const PairFiles& tFiles,
                                   std::uint64_t nCalibrationSeed);

// Whether these four files are there whole: truth and calibration byte by byte, the pictures by their sizes.
bool IsWritten(const chart::PairSetup& tSetup, const PairFiles& tFiles, std::uint64_t nCalibrationSeed);

} // namespace tools

#endif

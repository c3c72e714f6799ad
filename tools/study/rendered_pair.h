#pragma once

#include "study/notes.h"

namespace tools {

// All four files, with the pictures rendered.
std::vector<NewFile> RenderedFiles(const PairOptions& tOptions, const PairFiles& tFiles,
                                   std::uint64_t nCalibrationSeed);

// Renders a pair into a folder, which is created if missing. Without bOverwrite files that are there with
// other content are refused. Throws ToolError.
PairFiles WritePair(const std::string& strFolder, const PairOptions& tOptions, bool bOverwrite);

} // namespace tools

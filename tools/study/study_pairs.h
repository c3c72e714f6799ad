#pragma once

#include "study/notes.h"
#include "study/study.h"

namespace tools {

struct StudyPair {
    std::string strId;
    std::string strFolder; // within the study's
    std::uint64_t nCalibrationSeed;
    PairOptions tOptions;
};

// In the list's order.
StudyPair PairOf(const Study& tStudy, std::size_t nPair);

PairFiles FilesOf(const Study& tStudy, const StudyPair& tPair);

// The list's first line, and a pair's, with their line breaks.
std::string ListHeadLine();
std::string ListLineOf(const StudyPair& tPair);

} // namespace tools

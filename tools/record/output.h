#ifndef ORVEX_TOOLS_RECORD_OUTPUT_H
#define ORVEX_TOOLS_RECORD_OUTPUT_H

#include "record/judgement.h"

#include <array>

namespace tools {

constexpr std::array<ExitMeaning, 7> kRecordExits = {{
    {kAccepted, "accepted"},
    {kRefused, "refused"},
    {kUnfitFile, "a file could not be read, or does not fit"},
    {kWrongUsage, "wrong usage"},
    kHungUp,
    kInterrupted,
    kTerminated,
}};

struct RecordReport {
    RecordReading tReading;
    RecordJudgement tJudgement;
    std::string strCalibrationFile;
};

// For people.
std::string TextOf(const RecordReport& t);

// For programs: one object.
std::string JsonTextOf(const RecordReport& t);

} // namespace tools

#endif

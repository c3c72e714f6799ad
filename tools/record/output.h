#pragma once

#include "basics/exit_codes.h"
#include "record/judgement.h"

namespace tools {

struct RecordReport {
    RecordReading tReading;
    RecordJudgement tJudgement;
    std::string strCalibrationFile;

    // 0 accepted, 2 refused.
    ExitCode Exit() const { return tJudgement.bAccepted ? ExitCode::kDone : ExitCode::kNotMeasured; }
};

// For people.
std::string TextOf(const RecordReport& report);

// For programs: one object.
std::string JsonTextOf(const RecordReport& report);

} // namespace tools

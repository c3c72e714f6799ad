#pragma once

#include "measuring/truth.h"
#include "measuring/verdict.h"
#include "trust/pair_warnings.h"

namespace tools {

// One camera's share of a report.
struct CameraReport {
    Camera tCamera;
    Picture tPicture;
    CameraMeasurement tMeasured;
    StageView tView;
    ReadingOutcome tReading;
    CameraTrust tTrust;
};

// All that one call of measure has to say.
struct Report {
    CameraReport tMaster, tSlave;
    PairResult tPair;
    std::optional<UncertainAngles> oSecondAngles;
    Verdict tVerdict;
    ExitCode tExit; // the verdict's, unless the caller takes another
    MeasuringSetup tSetup;
    std::vector<Warning> aWarnings; // of both cameras and the pair
    std::string strCalibrationFile;
    std::string strRecordFile; // empty unless it was written
    std::optional<Truth> oTruth;
};

// What was measured, with verdict, trust and warnings. The rest is the caller's to add.
Report ReportOf(Picture tMaster, Picture tSlave, const Measurement& measurement, const MeasuringSetup& setup);

// The measurement against the report's truth; nothing without one.
std::vector<Comparison> ComparisonsOf(const Report& report);

} // namespace tools

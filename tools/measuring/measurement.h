#pragma once

#include "measuring/camera_measurement.h"
#include "measuring/stage_view.h"
#include "pictures/picture.h"

#include <string>
#include <vector>

namespace tools {

// What one call of the library tells of the pair.
struct PairResult {
    unsigned int nStatus;
    std::optional<Camera> oFailedCamera;
    const CornerName* pFailedCorner = nullptr; // where it failed at one
    std::optional<Angles> oRaw;
    std::optional<Angles> oRescaled;
    std::string strRecord;                 // the record file's bytes; empty if it could not be encrypted
    std::vector<std::string> aDiagnostics; // lines on standard output
    std::vector<std::string> aLog;         // lines of the log
    std::vector<std::string> aNotes;       // worth knowing, but no failure
};

// What it measured in one picture, and where it looked.
struct CameraResult {
    CameraMeasurement tMeasured;
    StageView tView;
};

// A copy of all that one call of the library tells, so that it outlasts the next call.
struct Measurement {
    PairResult tPair;
    CameraResult tMaster, tSlave;
};

// A smaller picture cannot hold the frame around a cross in its middle, wherever the frame is. Both cameras'
// pictures may have sizes of their own.
PictureSize LeastSizeOf(Camera tCamera);

// The first corner without a position; none if all have one.
const CornerName* MissingCorner(const CameraMeasurement& measured);

// Measures a pair. strCalibration holds at least ORVEX_CALIBRATION_SIZE bytes.
Measurement Measure(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration);

} // namespace tools

#pragma once

#include "measuring/camera_measurement.h"
#include "measuring/parameters.h"
#include "pictures/picture.h"
#include "reading/angles.h"

#include <string>
#include <vector>

namespace tools {

// What one call of the library tells of the pair.
struct PairResult {
    unsigned int nStatus;
    std::optional<Camera> oFailedCamera;
    std::optional<std::size_t> oFailedCorner = {}; // where it failed at one, as kCorners
    std::optional<Angles> oRaw;
    std::optional<Angles> oRescaled;       // as getAlign returns them
    std::vector<std::string> aDiagnostics; // lines on standard output
};

// What was found in one picture, and where it was looked for.
struct CameraResult {
    CameraMeasurement tMeasured;
    StageView tView;
    ReadingOutcome tReading; // the tool's own
    FrameSearch tFrameSearch = {};
};

// A copy of all that one call of the library tells, so that it outlasts the next call.
struct Measurement {
    PairResult tPair;
    CameraResult tMaster, tSlave;
    std::optional<UncertainAngles> oSecondAngles; // by the second reading, if both pictures could be read
};

// A smaller picture cannot hold the frame around a cross in its middle, wherever the frame is. Both cameras'
// pictures may have sizes of their own.
PictureSize LeastSizeOf(Camera tCamera);

// The first corner without a position, as kCorners; none if all have one.
std::optional<std::size_t> MissingCorner(const CameraMeasurement& measured);

// Of the frame, as far as the stages know them: measured, or about where they met its edge.
std::optional<std::array<Point, 4>> KnownCorners(const CameraResult& tResult);

// Measures a pair as getAlign does, but leaves the phone's record file alone. For a product the stages run in
// the same order with its parameters, and its limit decides.
Measurement Measure(const Picture& tMaster, const Picture& tSlave, const MeasuringSetup& setup = {});

// The bytes of the record file of that pair, empty if it could not be encrypted. strCalibration holds at
// least ORVEX_CALIBRATION_SIZE bytes. getAlign also writes the phone's record file where its folder is there.
std::string RecordOf(const Picture& tMaster, const Picture& tSlave, const std::string& strCalibration);

} // namespace tools

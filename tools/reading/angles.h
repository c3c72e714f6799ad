#pragma once

#include "reading/camera_reading.h"

namespace tools {

// The slave's rotation against the master's, degrees.
struct UncertainAngles {
    std::array<UncertainNumber, 3> aRaw;      // about x, y and z
    std::array<UncertainNumber, 3> aRescaled; // as they are judged
};

// By the library's formulas, so that both results differ by their errors of measurement alone.
UncertainAngles AnglesOf(const CameraReading& tMaster, const CameraReading& tSlave,
                         const ChartMeasures& tMeasures);

// As the library rescales an angle of one degree or more.
UncertainNumber Rescaled(UncertainNumber tRaw);

} // namespace tools

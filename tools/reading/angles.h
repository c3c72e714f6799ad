#pragma once

#include "reading/camera_reading.h"

namespace tools {

// Sides and tilts from the corners, by the library's formulas.
void DeriveTilts(const ChartMeasures& tMeasures, CameraReading& reading);

// From the horizontal bar, likewise: positive with the right end higher.
UncertainNumber RollOf(const UncertainLine& tBar);

// The slave's rotation against the master's about x, y and z, degrees.
struct UncertainAngles {
    std::array<UncertainNumber, 3> aRaw;
};

// By the library's formulas, so that both results differ by their errors of measurement alone.
UncertainAngles AnglesOf(const CameraReading& tMaster, const CameraReading& tSlave,
                         const ChartMeasures& tMeasures);

} // namespace tools

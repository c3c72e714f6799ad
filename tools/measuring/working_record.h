#pragma once

#include "measuring/camera_measurement.h"

namespace tools {

// The latest run's values of one camera, which failed in stage tReached or passed all stages before it. The
// library's record holds zeros for what was not measured; here such values are absent.
CameraMeasurement RecordedCamera(Camera tCamera, Stage tReached);

} // namespace tools

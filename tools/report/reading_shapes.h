#pragma once

#include "report/report.h"

namespace tools {

// The second reading's half sides and bars, and the centres that it left out, as shapes of the page.
std::string ReadingShapes(const std::string& strCamera, const CameraReading& tReading);

// Where the library's measurement failed in this picture; nothing if it did not, or if no place is known.
std::optional<Point> PlaceOfFailure(const CameraReport& tCamera, const PairResult& pair,
                                    const StatusWords& tStatus);

} // namespace tools

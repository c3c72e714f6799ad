#pragma once

#include "reading/line_reading.h"

namespace tools {

// Of the printed chart and its place, as the library has them: chart units.
struct ChartMeasures {
    double dDistance;
    double dHalfSpanX, dHalfSpanY; // from the cross to the frame's sides' middle lines
};

struct UncertainNumber {
    double dValue = 0, dVariance = 0;
};

struct UncertainPoint {
    Point tPlace = {};
    double dVarianceX = 0, dCovariance = 0, dVarianceY = 0; // px^2
};

// Why there is no second reading.
enum class NoReading {
    kNoContrast,  // blank, or so pale that noise hides the chart
    kInverted,    // bright lines on dark paper
    kNoFrame,     // no rectangle of the chart's shape
    kFrameOnSide, // it is there, but turned by a quarter
    kSideHidden,  // too little of one side is to be seen
    kNoCross      // there is no cross in its middle, or too little of it
};

// Behind "no second reading: ".
const char* DescribeNoReading(NoReading tReason);

// One camera's picture as the tool reads it by itself. Lengths in px, angles in degrees.
struct CameraReading {
    std::array<UncertainPoint, 4> aCorners; // as kCorners
    UncertainPoint tCentre;                 // where the cross's bars meet
    std::array<UncertainNumber, 4> aSides;  // lengths, as kSides
    UncertainNumber tTiltX, tTiltY, tRoll;
    std::array<std::array<LineReading, 2>, 4> aaHalves; // of each side as kSides, in the order of its corners
    LineReading tHorizontalBar, tVerticalBar;
};

// Its reading, or why there is none.
struct ReadingOutcome {
    std::optional<CameraReading> oReading;
    NoReading tReason = {};
};

// Reads the frame whose corners are known to about the width of its line. Where they are not known, or where
// the frame does not show there, it is searched for.
ReadingOutcome ReadCamera(const Picture& tPicture, const ChartMeasures& tMeasures,
                          const std::optional<std::array<Point, 4>>& oCorners = std::nullopt);

} // namespace tools

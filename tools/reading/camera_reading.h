#pragma once

#include "reading/line_reading.h"
#include "reading/uncertain_geometry.h"

namespace tools {

// Of the printed chart and its place, as the library has them: chart units.
struct ChartMeasures {
    double dDistance;
    double dHalfSpanX, dHalfSpanY;               // from the cross to the frame's sides' middle lines
    double dHorizontalBar = 1, dVerticalBar = 1; // widths of the cross's bars, in those of the frame's line
};

struct UncertainNumber {
    double dValue = 0, dVariance = 0;
};

// Why there is no second reading.
enum class NoReading {
    kNoContrast,  // blank, or so pale that noise hides the chart
    kInverted,    // bright lines on dark paper
    kNoFrame,     // no rectangle of the chart's shape
    kFrameOnSide, // it is there, but turned by a quarter
    kFrameCut,    // it reaches beyond the picture
    kSideHidden,  // too little of one side is to be seen
    kNoCross      // there is no cross in its middle, or too little of it
};

constexpr std::size_t kHalfSides = 8, kHorizontalBar = 8, kVerticalBar = 9, kChartLines = 10;

// One camera's picture as the tool reads it by itself. Lengths in px, angles in degrees.
struct CameraReading {
    std::array<UncertainPoint, 4> aCorners; // as kCorners
    UncertainPoint tCentre;                 // where the cross's bars meet
    std::array<UncertainNumber, 4> aSides;  // lengths, as kSides
    UncertainNumber tTiltX, tTiltY, tRoll;
    std::vector<LineReading> aLines; // kChartLines: the half sides, see HalfSide, then the bars
};

// Its reading, or why there is none.
struct ReadingOutcome {
    std::optional<CameraReading> oReading;
    NoReading tReason = {};
    std::optional<std::size_t> oLine = {}; // of kChartLines, of which too little is to be seen
};

// Reads the frame whose corners are known to about the width of its line. Where they are not known, or where
// the frame does not show there, it is searched for.
ReadingOutcome ReadCamera(const Picture& tPicture, const ChartMeasures& tMeasures,
                          const std::optional<std::array<Point, 4>>& oCorners = std::nullopt);

} // namespace tools

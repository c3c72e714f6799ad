#pragma once

#include "core/plane.h"
#include "geometry/centroid.h"

namespace orvex {

// Statuses of one bar's failure points. A run is at least 90 lines long and the centre lies inside it, so
// that both ends always have lines to sample, well apart from each other.
struct BarStatuses {
    unsigned int nNoRun;
    unsigned int nNoBand;
    unsigned int nOffCentre;
    unsigned int nFirstSample;
    unsigned int nSecondSample;
    unsigned int nOutside;
};

// The mean of a bar's centre line over the lines near one of its ends: where the lines are along the bar, and
// where the bar's centre is across it.
struct BarEnd {
    double dAlong;
    double dAcross;
};

struct BarLine {
    BarEnd tFirst;
    BarEnd tSecond;
};

// The dense run of the bar's lines. Returns 0 or nNoRun: no run, or one that starts at entry 0 or ends where
// it starts. tRun is written in either case.
unsigned int FindBarRun(std::span<const double> adHistogram, const BarStatuses& tStatuses, Range* ptRun);

// Samples the bar's centre line near both ends of its run. bHorizontal: the lines are columns of the grey
// plane, else rows. dCentre: the cross's centre along the bar. tBand: the bar's extent across, in the plane.
// Returns 0 or one of the bar's statuses.
unsigned int MeasureBarLine(PlaneView tGrey, bool bHorizontal, Range tRun, double dCentre, Range tBand,
                            double dThreshold, const BarStatuses& tStatuses, BarLine* ptLine);

} // namespace orvex

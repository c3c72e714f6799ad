#pragma once

#include "geometry/dark_histograms.h"

namespace orvex {

// The column with the most dark pixels and, among the rows of the dense run, the row with the most; the
// lowest of equals. Written to pCenter (x, y); y stays as it was if no row lies in the run.
void FindCoarseCentre(const DarkHistograms& tHistograms, unsigned short* pCenter);

} // namespace orvex

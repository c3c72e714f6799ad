#pragma once

namespace orvex {

// Threshold between a rectangle's dark and bright level, from its histogram. nStride: row stride; columns nX1
// to nX2 and rows nY1 to nY2, all inclusive and inside the plane. dDarkFraction and dBrightFraction: shares
// of the pixels that fix the two levels; dBlend: the threshold's place between them.
//
// Returns false for an empty rectangle or levels that are not reached or cross; pdThreshold (may be null) is
// then left alone.
bool CalcRegionThreshold(const unsigned char* pGray, int nStride, int nX1, int nY1, int nX2, int nY2,
                         double dDarkFraction, double dBrightFraction, double dBlend, double* pdThreshold);

} // namespace orvex

#pragma once

namespace orvex {

// Mean position of the centre line of the dark side that crosses a stripe: columns nX1 to nX2 and rows nY1 to
// nY2 of the grey plane, inclusive. bColumnLines true: every column is searched for the dark run along y;
// false: every row along x. A line without a pixel at or below the threshold repeats the previous line's
// centre, the first lines the first valid one; the sixth such line fails the stripe.
//
// Returns false for that, for a stripe without any centre, one that is empty or leaves the picture, and for a
// negative mean. pdX and pdY (each may be null) receive the mean, px, on success only.
bool MeasureStripeLineCentre(const unsigned char* pGray, int nImageWidth, int nImageHeight, int nX1, int nY1,
                             int nX2, int nY2, bool bColumnLines, double* pdX, double* pdY,
                             double dThreshold);

} // namespace orvex

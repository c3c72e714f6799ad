#pragma once

namespace orvex {

// Finds the first line of a band at which the number of dark pixels (value 0) falls by 16 or more and stays
// down: where one side of the frame leaves the other. nWidth: row stride.
//
// bRowLines true: the lines are columns nX1 to nX2 of the rows from nY1 to nY2. False: rows nY1 to nY2 of the
// columns from nX1 to nX2. The lines are walked in that direction, both ends included, and lie in the plane;
// a line whose upper bound lies below its lower one counts nothing.
//
// Returns whether a drop was found; pnLine (may be null) receives its row or column, on success only.
bool FindDarkCountDrop(const unsigned char* pBinary, int nStride, int nX1, int nY1, int nX2, int nY2,
                       bool bRowLines, int* pnLine);

} // namespace orvex

#pragma once

namespace orvex {

// Slides a short segment across the grey plane, one pixel at a time, and finds the first brightness step that
// it meets and that lasts. nStride: row stride.
//
// bRowLines true: the segment, columns nX1 to nX2 of a row, moves from row nY1 toward row nY2. False: the
// segment, rows nY1 to nY2 of a column, moves from column nX1 toward column nX2. The target line itself is
// never looked at. All lines before it must lie in the plane.
//
// Returns whether an edge was found; pnEdge (may be null) receives its row or column, on success only.
bool FindEdgeByLineSum(const unsigned char* pGray, int nStride, int nX1, int nY1, int nX2, int nY2,
                       bool bRowLines, int* pnEdge);

} // namespace orvex

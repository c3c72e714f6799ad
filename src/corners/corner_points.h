#pragma once

#include "Orvex_Alignment_Stages.h"

namespace orvex {

// All four corners of one picture, in the order LT, RT, LD, RD; arguments as for the single corners. Returns
// 0 or the status of the first corner that fails; those before it stay written.
unsigned int MeasureCornerPoints(unsigned char* pBinary, unsigned char* pGray, unsigned int nImageWidth,
                                 unsigned int nImageHeight, int nCenterX, int nCenterY,
                                 _POINTPOSITION ptOuterLT, _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT,
                                 _POINTPOSITION ptInnerRD, int nMaster);

} // namespace orvex

#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"

#include <cmath>

using namespace orvex;

namespace {

// Widened before it is squared: diagonals carry no float rounding in the sum.
double Length(double dX, double dY) {
    return std::sqrt(dX * dX + dY * dY);
}

// Squared and summed in single precision, on purpose: sides carry its rounding.
double SideLength(const float* pfOne, const float* pfOther) {
    const float fX = pfOne[0] - pfOther[0], fY = pfOne[1] - pfOther[1];
    return std::sqrt(static_cast<double>(fX * fX + fY * fY));
}

} // namespace

unsigned int DualCamAlign_NewMeasureSquareLength(float* pfExtent, bool bMaster) {
    const CameraResults t = ResultsOf(bMaster);
    const float *pLT = t.afCornerPoint[ORVEX_LT], *pLD = t.afCornerPoint[ORVEX_LD];
    const float *pRT = t.afCornerPoint[ORVEX_RT], *pRD = t.afCornerPoint[ORVEX_RD];
    const float fX1 = pRD[0] - pLT[0], fY1 = pRD[1] - pLT[1];
    const float fX2 = pRT[0] - pLD[0], fY2 = pLD[1] - pRT[1];
    if (pfExtent != nullptr) {
        pfExtent[0] = (fX1 + fX2) * 0.5f;
        pfExtent[1] = (fY1 + fY2) * 0.5f;
    }
    t.afFrameDiagonal[0] = static_cast<float>(Length(fX1, fY1));
    t.afFrameDiagonal[1] = static_cast<float>(Length(fX2, fY2));
    t.fDiagonalRatio = t.afFrameDiagonal[0] / t.afFrameDiagonal[1];
    t.adSideLength[ORVEX_LEFT] = SideLength(pLT, pLD);
    t.adSideLength[ORVEX_TOP] = SideLength(pLT, pRT);
    t.adSideLength[ORVEX_RIGHT] = SideLength(pRT, pRD);
    t.adSideLength[ORVEX_BOTTOM] = SideLength(pLD, pRD);
    return ORVEX_OK;
}

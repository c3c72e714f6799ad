#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "geometry/coarse_centre.h"
#include "geometry/cross_measurement.h"

#include <algorithm>

using namespace orvex;

unsigned int DualCamAlign_CalculateIntersectionAndAngle(unsigned char* pBinary, unsigned char* pImage,
                                                        int nImageWidth, int nImageHeight, double* pAngle,
                                                        float* pCenterOut, int* pSpan, double*, double*,
                                                        double*, double dWidthRatio, double dHeightRatio,
                                                        bool bMaster, unsigned short* pCenter, bool bRefine) {
    const bool bOutputs = pAngle != nullptr && pCenterOut != nullptr && pSpan != nullptr;
    if (!IsUsableSize(nImageWidth, nImageHeight) || pBinary == nullptr || pImage == nullptr ||
        pCenter == nullptr || (bRefine && !bOutputs))
        return ORVEX_CROSS_NO_COLUMN_RUN;
    const PictureSize tSize = {nImageWidth, nImageHeight};
    const CentreWindow tWindow = WindowOfPass(tSize, {dWidthRatio, dHeightRatio}, bMaster, pCenter, bRefine);
    // The last column and row of the binarised window are left out here, on purpose.
    const std::optional<DarkHistograms> oHistograms = CountDark({pBinary, tSize}, tWindow.HalfOpen());
    if (!oHistograms)
        return ORVEX_CROSS_NO_COLUMN_RUN;
    if (!bRefine)
        return FindCoarseCentre(*oHistograms, pCenter) ? ORVEX_OK : ORVEX_CROSS_NO_COLUMN_RUN;

    const CameraResults tResults = ResultsOf(bMaster);
    CrossMeasurement tCross = {};
    const unsigned int nStatus =
        MeasureCross({pImage, tSize}, *oHistograms, tWindow, pCenter, tResults.dBinaryThreshold, &tCross);
    if (tCross.nSpanX != 0)
        *pSpan = tCross.nSpanX;
    if (nStatus != ORVEX_OK)
        return nStatus;
    std::copy_n(tCross.afCentre, 2, pCenterOut);
    std::copy_n(tCross.afCentre, 2, tResults.afCrossCenterCopy);
    *pAngle = -tCross.fAngle; // positive with the right end higher
    return ORVEX_OK;
}

#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "geometry/coarse_centre.h"
#include "geometry/cross_search.h"

#include <algorithm>

namespace orvex {

unsigned int SearchCross(const DarkBits& tDark, PlaneView tGrey, CentreWindow tWindow, bool bMaster,
                         unsigned short* pCenter, const CrossOutputs* pOutputs) {
    // The last column and row of the binarised window are left out here, on purpose.
    const std::optional<DarkHistograms> oHistograms =
        CountDark(tDark, tGrey.tSize, tWindow.HalfOpen().ClippedTo(tGrey.tSize.Bounds()));
    if (!oHistograms)
        return ORVEX_CROSS_NO_COLUMN_RUN;
    if (pOutputs == nullptr) {
        FindCoarseCentre(*oHistograms, pCenter);
        return ORVEX_OK;
    }
    const CameraResults tResults = ResultsOf(bMaster);
    CrossMeasurement tCross = {};
    const unsigned int nStatus =
        MeasureCross(tGrey, *oHistograms, tWindow, pCenter, tResults.dBinaryThreshold, &tCross);
    if (tCross.nSpanX != 0)
        *pOutputs->pSpan = tCross.nSpanX;
    if (nStatus != ORVEX_OK)
        return nStatus;
    std::copy_n(tCross.afCentre, 2, pOutputs->pCenter);
    std::copy_n(tCross.afCentre, 2, tResults.afCrossCenterCopy);
    *pOutputs->pAngle = -tCross.fAngle; // positive with the right end higher
    return ORVEX_OK;
}

} // namespace orvex

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
    std::optional<DarkBits> oDark = DarkBits::Bright(tWindow.HalfOpen().ClippedTo(tSize.Bounds()));
    if (!oDark)
        return ORVEX_CROSS_NO_COLUMN_RUN;
    SetDark({pBinary, tSize}, ubDark + 1, &*oDark);
    const CrossOutputs tOutputs = {pAngle, pCenterOut, pSpan};
    return SearchCross(*oDark, {pImage, tSize}, tWindow, bMaster, pCenter, bRefine ? &tOutputs : nullptr);
}

#include "image/centre_window.h"

#include "Orvex_Alignment_Stages.h"
#include "core/to_integer.h"

namespace orvex {

CentreWindow CoarseWindow(PictureSize tSize, WindowRatios tRatios, std::optional<WindowShift> oShift) {
    const double dWidth = tSize.nWidth, dHeight = tSize.nHeight;
    CentreWindow t = {ToInt((dWidth - dWidth * tRatios.dWidth) * 0.5),
                      ToInt((dWidth + dWidth * tRatios.dWidth) * 0.5),
                      ToInt((dHeight - dHeight * tRatios.dHeight) * 0.5),
                      ToInt((dHeight + dHeight * tRatios.dHeight) * 0.5)};
    // The upper clamp is the size itself, not the last pixel: the window is half-open where it is counted.
    if (oShift && oShift->bAlongY) {
        t.y1 = std::min<std::int64_t>(t.y1 + oShift->nPixels, tSize.nHeight);
        t.y0 = std::max<std::int64_t>(t.y0 + oShift->nPixels, 0);
    } else if (oShift) {
        t.x1 = std::min<std::int64_t>(t.x1 + oShift->nPixels, tSize.nWidth);
        t.x0 = std::max<std::int64_t>(t.x0 + oShift->nPixels, 0);
    }
    return t;
}

CentreWindow RefinedWindow(PictureSize tSize, WindowRatios tRatios, const unsigned short* pCenter) {
    const double dHalfWidth = 0.5 * tSize.nWidth * tRatios.dWidth;
    const double dHalfHeight = 0.5 * tSize.nHeight * tRatios.dHeight;
    return {ToInt(pCenter[0] - dHalfWidth), ToInt(pCenter[0] + dHalfWidth), ToInt(pCenter[1] - dHalfHeight),
            ToInt(pCenter[1] + dHalfHeight)};
}

CentreWindow WindowOfPass(PictureSize tSize, WindowRatios tRatios, bool bMaster,
                          const unsigned short* pCenter, bool bRefine) {
    if (bRefine)
        return RefinedWindow(tSize, tRatios, pCenter);
    if (bMaster)
        return CoarseWindow(tSize, tRatios, std::nullopt);
    const DualCamAlignParam& t = m_tDualCamAlignParam;
    const int nShift = t.bUseSlaveShift != 0 ? ToInt(t.fSlaveShift) : 0;
    return CoarseWindow(tSize, tRatios, WindowShift{nShift, t.bShiftAlongY != 0});
}

} // namespace orvex

#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "image/binary_window.h"

using namespace orvex;

int DualCamAlign_BinaryImage(unsigned char* pImage, int nImageWidth, int nImageHeight, double dBinaryRatio,
                             int (*)[2], unsigned char* pBinary, double dWidthRatio, double dHeightRatio,
                             bool bMaster, unsigned short* pCenter, bool bRefine) {
    const bool bUsable = IsUsableSize(nImageWidth, nImageHeight) && pImage != nullptr && pBinary != nullptr &&
                         (pCenter != nullptr || !bRefine);
    if (!bUsable)
        return 0;
    const PictureSize tSize = {nImageWidth, nImageHeight};
    const CentreWindow tWindow = WindowOfPass(tSize, {dWidthRatio, dHeightRatio}, bMaster, pCenter, bRefine);
    const std::optional<DarkBits> o =
        BinariseWindow({pImage, tSize}, tWindow, dBinaryRatio, &ResultsOf(bMaster).dBinaryThreshold);
    if (!o)
        return 0;
    PaintBinary(*o, tSize, pBinary);
    return 1;
}

#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "core/scratch.h"
#include "image/binary_window.h"

#include <cstring>

using namespace orvex;

int DualCamAlign_BinaryImage(unsigned char* pImage, int nImageWidth, int nImageHeight, double dBinaryRatio,
                             int (*)[2], unsigned char* pBinary, double dWidthRatio, double dHeightRatio,
                             bool bMaster, unsigned short* pCenter, bool bRefine) {
    const bool bUsable = IsUsableSize(nImageWidth, nImageHeight) && pImage != nullptr && pBinary != nullptr &&
                         (pCenter != nullptr || !bRefine);
    if (!bUsable)
        return 0;
    const PictureSize tSize = {nImageWidth, nImageHeight};
    const std::size_t nGuard = GuardBytes(tSize);
    const Scratch<unsigned char> pScratch = MakeScratch<unsigned char>(tSize.Pixels() + 2 * nGuard);
    if (!pScratch)
        return 0;
    std::memset(pScratch.get(), ubBright, tSize.Pixels() + 2 * nGuard);

    const PlaneView tGrey = {pImage, tSize};
    unsigned char* const pPlane = pScratch.get() + nGuard;
    const CentreWindow tWindow = WindowOfPass(tSize, {dWidthRatio, dHeightRatio}, bMaster, pCenter, bRefine);
    const double dThreshold = CornerPatchThreshold(tGrey, tWindow, dBinaryRatio);
    ResultsOf(bMaster).dBinaryThreshold = dThreshold;
    BinariseWindow(tGrey, tWindow, dThreshold, pPlane);
    CleanSpecks(tSize, tWindow, pPlane);
    std::memcpy(pBinary, pPlane, tSize.Pixels());
    return 1;
}

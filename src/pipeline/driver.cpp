#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "core/plane.h"
#include "core/to_integer.h"
#include "corners/corner_points.h"
#include "pipeline/stage_messages.h"

#include <cstdio>
#include <cstdlib>

using namespace orvex;

namespace {

// What the stages of one camera pass on to each other.
struct CameraRun {
    bool bMaster;
    CameraParameters tParam;
    CameraResults tResults;
    unsigned char* pGray;
    unsigned char* pBinary;
    unsigned short* pCenter;   // coarse centre, shared by both cameras
    _POINTPOSITION atFrame[4]; // outer LT, outer RD, inner LT, inner RD

    int CenterX() const { return ToInt(tResults.afCrossCenter[0]); }
    int CenterY() const { return ToInt(tResults.afCrossCenter[1]); }
    int Master() const { return bMaster ? 1 : 0; }
    unsigned int Width() const { return static_cast<unsigned int>(tParam.nWidth); }
    unsigned int Height() const { return static_cast<unsigned int>(tParam.nHeight); }
};

unsigned int Report(const StageMessage& t, unsigned int nStatus) {
    if (nStatus != ORVEX_OK)
        std::printf("%s  err=%d!! Line=%d.", t.szText, static_cast<int>(nStatus), t.nLine);
    return nStatus;
}

unsigned int MeasureCentre(const CameraRun& t, bool bRefine) {
    const CameraMessages& tMessages = MessagesOf(t.bMaster);
    int aiCenterList[4][2] = {};
    if (DualCamAlign_BinaryImage(t.pGray, t.tParam.nWidth, t.tParam.nHeight, t.tParam.dBinaryRatio,
                                 aiCenterList, t.pBinary, t.tParam.dSearchWidthRatio,
                                 t.tParam.dSearchHeightRatio, t.bMaster, t.pCenter, bRefine) == 0) {
        // The centre search has no status of its own: 0 is printed, and only here the line ends in a newline.
        std::printf("%s  err=%d!! Line=%d.\n", tMessages.tCentreSearch.szText, 0,
                    tMessages.tCentreSearch.nLine);
        return tMessages.nCentreSearchStatus;
    }
    return Report(tMessages.tCross,
                  DualCamAlign_CalculateIntersectionAndAngle(
                      t.pBinary, t.pGray, t.tParam.nWidth, t.tParam.nHeight, &t.tResults.dCrossAngle,
                      t.tResults.afCrossCenter, &t.tResults.nCrossSpanX, &t.tResults.dCrossAux0,
                      &t.tResults.dCrossAux1, &t.tResults.dCrossAux2, t.tParam.dSearchWidthRatio,
                      t.tParam.dSearchHeightRatio, t.bMaster, t.pCenter, bRefine));
}

unsigned int MeasureCoarseCentre(CameraRun& t) {
    return MeasureCentre(t, false);
}

unsigned int MeasureRefinedCentre(CameraRun& t) {
    return MeasureCentre(t, true);
}

unsigned int LocateFrame(CameraRun& t) {
    const int nStatus =
        DualCamAlign_CalImageFrame(t.pGray, t.Width(), t.Height(), t.CenterX(), t.CenterY(), &t.atFrame[0],
                                   &t.atFrame[1], &t.atFrame[2], &t.atFrame[3], t.Master());
    return Report(MessagesOf(t.bMaster).tFrame, static_cast<unsigned int>(nStatus));
}

unsigned int BinariseFrame(CameraRun& t) {
    const int nStatus =
        DualCamAlign_BinaryImageFrame(t.pGray, t.pBinary, t.Width(), t.Height(), t.CenterX(), t.CenterY(),
                                      t.atFrame[0], t.atFrame[1], t.atFrame[2], t.atFrame[3], t.Master());
    return Report(MessagesOf(t.bMaster).tFrameBinary, static_cast<unsigned int>(nStatus));
}

unsigned int MeasureCorners(CameraRun& t) {
    return Report(MessagesOf(t.bMaster).tCorners,
                  MeasureCornerPoints(t.pBinary, t.pGray, t.Width(), t.Height(), t.CenterX(), t.CenterY(),
                                      t.atFrame[0], t.atFrame[1], t.atFrame[2], t.atFrame[3], t.Master()));
}

unsigned int MeasureSides(CameraRun& t) {
    return Report(MessagesOf(t.bMaster).tSides,
                  DualCamAlign_NewMeasureSquareLength(t.tResults.afFrameExtent, t.bMaster));
}

unsigned int MeasureCamera(bool bMaster, unsigned char* pRGB, unsigned char* pGray, unsigned char* pBinary,
                           unsigned short* pCenter) {
    CameraRun t = {bMaster, ParametersOf(bMaster), ResultsOf(bMaster), pGray, pBinary, pCenter, {}};
    // Without planes the centre search fails with its own status.
    if (pRGB == nullptr || !IsUsableSize(t.tParam.nWidth, t.tParam.nHeight))
        t.pGray = t.pBinary = nullptr;
    GetGValueFromRGB(pRGB, t.tParam.nWidth, t.tParam.nHeight, t.pGray);
    for (const auto Stage : {MeasureCoarseCentre, MeasureRefinedCentre, LocateFrame, BinariseFrame,
                             MeasureCorners, MeasureSides})
        if (const unsigned int nStatus = Stage(t))
            return nStatus;
    return ORVEX_OK;
}

// 0 for a size that no stage accepts.
std::size_t UsablePixels(PictureSize t) {
    return IsUsableSize(t.nWidth, t.nHeight) ? t.Pixels() : 0;
}

// Pixels of one plane of the working buffer: the larger picture's, so that a larger slave is measured and not
// overrun.
std::size_t PlanePixels(const DualCamAlignView& t) {
    return std::max(UsablePixels({t.nWidth_Master, t.nHeight_Master}),
                    UsablePixels({t.nWidth_Slave, t.nHeight_Slave}));
}

} // namespace

unsigned int DualCamAlign_Calculation(unsigned char* pMasterRGB, unsigned char* pSlaveRGB) {
    // The buffer is kept until the next run, so that its planes can be looked at after this one.
    std::free(m_pCMainView.pGreenBuffer);
    const std::size_t nPixels = PlanePixels(m_pCMainView);
    m_pCMainView.pGreenBuffer = static_cast<unsigned char*>(std::malloc(nPixels * 3));
    unsigned char* const pGray = m_pCMainView.pGreenBuffer;
    unsigned char* const pBinary = pGray != nullptr ? pGray + nPixels : nullptr;

    unsigned short uwCenterPos[2] = {0, 0};
    if (const unsigned int n = MeasureCamera(true, pMasterRGB, pGray, pBinary, uwCenterPos))
        return n;
    if (const unsigned int n = MeasureCamera(false, pSlaveRGB, pGray, pBinary, uwCenterPos))
        return n;
    DualCamAlign_CoordinateTransfer(m_tDualCamAlignData.afCrossCenter_Master,
                                    m_tDualCamAlignData.afTransferredCenter, 1);
    return ORVEX_OK;
}

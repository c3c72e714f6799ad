#include "Orvex_Alignment_Stages.h"

#include "core/camera.h"
#include "core/plane.h"
#include "core/to_integer.h"
#include "corners/corner_points.h"
#include "geometry/cross_search.h"
#include "image/binary_window.h"
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
    unsigned short* pCenter;       // coarse centre, shared by both cameras
    std::optional<DarkBits> oDark; // of the latest pass over the centre window
    _POINTPOSITION atFrame[4];     // outer LT, outer RD, inner LT, inner RD

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

// The two stages of the centre search as the exported ones have them, but the dark pixels go from one to the
// other as bits.
unsigned int MeasureCentrePass(CameraRun& t, const CrossOutputs* pOutputs) {
    const CameraMessages& tMessages = MessagesOf(t.bMaster);
    const PlaneView tGrey = {t.pGray, {t.tParam.nWidth, t.tParam.nHeight}};
    const CentreWindow tWindow =
        WindowOfPass(tGrey.tSize, {t.tParam.dSearchWidthRatio, t.tParam.dSearchHeightRatio}, t.bMaster,
                     t.pCenter, pOutputs != nullptr);
    std::optional<DarkBits> oDark;
    if (t.pGray != nullptr)
        oDark = BinariseWindow(tGrey, tWindow, t.tParam.dBinaryRatio, &t.tResults.dBinaryThreshold);
    if (!oDark) {
        // The centre search has no status of its own: 0 is printed, and only here the line ends in a newline.
        std::printf("%s  err=%d!! Line=%d.\n", tMessages.tCentreSearch.szText, 0,
                    tMessages.tCentreSearch.nLine);
        return tMessages.nCentreSearchStatus;
    }
    t.oDark = std::move(oDark);
    return Report(tMessages.tCross, SearchCross(*t.oDark, tGrey, tWindow, t.bMaster, t.pCenter, pOutputs));
}

// A coarse pass and a refining one. The binary plane shows the latest.
unsigned int MeasureCentre(CameraRun& t) {
    const CrossOutputs tOutputs = {&t.tResults.dCrossAngle, t.tResults.afCrossCenter,
                                   &t.tResults.nCrossSpanX};
    unsigned int nStatus = MeasureCentrePass(t, nullptr);
    if (nStatus == ORVEX_OK)
        nStatus = MeasureCentrePass(t, &tOutputs);
    if (t.oDark)
        PaintBinary(*t.oDark, {t.tParam.nWidth, t.tParam.nHeight}, t.pBinary);
    return nStatus;
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

// Without a grey plane the centre search fails with its own status.
unsigned int MeasureCamera(bool bMaster, unsigned char* pGray, unsigned char* pBinary,
                           unsigned short* pCenter) {
    CameraRun t = {bMaster, ParametersOf(bMaster), ResultsOf(bMaster), pGray, pBinary, pCenter, {}, {}};
    if (const unsigned int nStatus = MeasureCentre(t))
        return nStatus;
    for (const auto Stage : {LocateFrame, BinariseFrame, MeasureCorners, MeasureSides})
        if (const unsigned int nStatus = Stage(t))
            return nStatus;
    return ORVEX_OK;
}

// A camera's picture as the host gives it, and its size; a size that no stage accepts is none.
struct Picture {
    unsigned char* pRGB;
    PictureSize tSize;

    std::size_t Pixels() const { return IsUsableSize(tSize.nWidth, tSize.nHeight) ? tSize.Pixels() : 0; }
    bool IsUsable() const { return pRGB != nullptr && Pixels() != 0; }
    unsigned char* CopyTo(unsigned char* pGray) const {
        if (!IsUsable())
            return nullptr;
        GetGValueFromRGB(pRGB, tSize.nWidth, tSize.nHeight, pGray);
        return pGray;
    }
};

// The buffer stays after a run, so that its planes can be looked at, and for the next run of the same size,
// which then has no page to ask the system for. The heap knows how large it is, also one that the host has
// put in its place.
unsigned char* WorkingBuffer(std::size_t nBytes) {
    unsigned char*& pBuffer = m_pCMainView.pGreenBuffer;
    void* const p = std::realloc(pBuffer, std::max<std::size_t>(nBytes, 1));
    if (p == nullptr)
        std::free(pBuffer);
    return pBuffer = static_cast<unsigned char*>(p);
}

} // namespace

unsigned int DualCamAlign_Calculation(unsigned char* pMasterRGB, unsigned char* pSlaveRGB) {
    const DualCamAlignView& tView = m_pCMainView;
    const Picture tMaster = {pMasterRGB, {tView.nWidth_Master, tView.nHeight_Master}};
    const Picture tSlave = {pSlaveRGB, {tView.nWidth_Slave, tView.nHeight_Slave}};
    // The larger picture's, so that a larger slave is measured and not overrun.
    const std::size_t nPixels = std::max(tMaster.Pixels(), tSlave.Pixels());
    unsigned char* const pGray = WorkingBuffer(nPixels * 3);
    unsigned char* const pBinary = pGray != nullptr ? pGray + nPixels : nullptr;

    // A master whose grey plane the slave's will overwrite whole is measured in its own picture. The plane is
    // made only if the master fails, so that it can be looked at.
    const bool bReplaced =
        pGray != nullptr && tMaster.IsUsable() && tSlave.IsUsable() && tSlave.Pixels() == nPixels;
    unsigned char* const pMasterGray = bReplaced ? pMasterRGB : tMaster.CopyTo(pGray);
    unsigned short uwCenterPos[2] = {0, 0};
    if (const unsigned int n = MeasureCamera(true, pMasterGray, pBinary, uwCenterPos)) {
        if (bReplaced)
            tMaster.CopyTo(pGray);
        return n;
    }
    if (const unsigned int n = MeasureCamera(false, tSlave.CopyTo(pGray), pBinary, uwCenterPos))
        return n;
    DualCamAlign_CoordinateTransfer(m_tDualCamAlignData.afCrossCenter_Master,
                                    m_tDualCamAlignData.afTransferredCenter, 1);
    return ORVEX_OK;
}

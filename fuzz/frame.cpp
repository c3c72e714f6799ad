// The search for the frame's edges from any centre, and the binarisation of any ring around it.

#include "Orvex_Alignment_Stages.h"
#include "painting.h"
#include "require.h"

using namespace fuzz;

namespace {

constexpr View tView = {200, 160, 80, 60};

void SetParameters(Input& t, bool bMaster) {
    DualCamAlignParam& tParam = *DualCamAlign_LoadParameters_ForAndroid();
    const int nMargin = t.Coordinate(15, 200), x = t.Coordinate(50, 200), y = t.Coordinate(30, 160);
    (bMaster ? tParam.nFrameMargin_Master : tParam.nFrameMargin_Slave) = nMargin;
    (bMaster ? tParam.nFrameOffsetX_Master : tParam.nFrameOffsetX_Slave) = x;
    (bMaster ? tParam.nFrameOffsetY_Master : tParam.nFrameOffsetY_Slave) = y;
    for (double* const p : {bMaster ? &tParam.dFrameParam0_Master : &tParam.dFrameParam0_Slave,
                            bMaster ? &tParam.dFrameParam1_Master : &tParam.dFrameParam1_Slave,
                            bMaster ? &tParam.dFrameParam2_Master : &tParam.dFrameParam2_Slave,
                            bMaster ? &tParam.dFrameParam3_Master : &tParam.dFrameParam3_Slave,
                            bMaster ? &tParam.dFrameParam4_Master : &tParam.dFrameParam4_Slave})
        *p = t.Real(*p);
}

bool IsFrameStatus(int n) {
    return n == ORVEX_OK || (n >= ORVEX_FRAME_UPPER_LEFT && n <= ORVEX_FRAME_LOWER_RIGHT);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    const int nMaster = t.OneIn(8) ? t.Coordinate(0, 1) : t.Int(0, 1);
    SetParameters(t, nMaster == 1);
    Plane tGrey = PaintChart(t, tView), tBinary(tGrey.nColumns, tGrey.nRows, 255);
    const int cx = t.Coordinate(100, 200), cy = t.Coordinate(80, 160);
    _POINTPOSITION at[4] = {{-1, -1}, {-1, -1}, {-1, -1}, {-1, -1}};
    const int nStatus = DualCamAlign_CalImageFrame(tGrey.Data(), tGrey.Columns(), tGrey.Rows(), cx, cy,
                                                   &at[0], &at[1], &at[2], &at[3], nMaster);
    Require(IsFrameStatus(nStatus), "the frame's search has its own statuses");
    for (const _POINTPOSITION& pt : at)
        Require(nStatus == ORVEX_OK ? pt.x >= 0 && pt.y >= 0 && pt.x < tGrey.nColumns && pt.y < tGrey.nRows
                                    : pt.x == -1 && pt.y == -1,
                "the frame's points lie in the picture, or are left alone");
    if (nStatus != ORVEX_OK || t.OneIn(2))
        for (_POINTPOSITION& pt : at)
            pt = {t.Coordinate(pt.x, tGrey.nColumns), t.Coordinate(pt.y, tGrey.nRows)};
    const int nBinarised =
        DualCamAlign_BinaryImageFrame(tGrey.Data(), tBinary.Data(), tGrey.Columns(), tGrey.Rows(), cx, cy,
                                      at[0], at[1], at[2], at[3], nMaster);
    Require(nBinarised == ORVEX_OK || nBinarised == ORVEX_FRAME_THRESHOLD, "binarised, or no threshold");
    for (const unsigned char ub : tBinary.aPixels)
        Require(ub == 0 || ub == 255, "a binary plane is dark and bright only");
    return 0;
}

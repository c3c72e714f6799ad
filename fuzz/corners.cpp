// The four corners, from any centre, rectangles and thresholds.

#include "Orvex_Alignment_Stages.h"
#include "painting.h"
#include "require.h"

#include <bit>

using namespace fuzz;

namespace {

constexpr View tView = {220, 180, 90, 70};

struct Corner {
    decltype(&DualCamAlign_NewMeasureLTPnt) pMeasure;
    OrvexCorner eSlot;
    unsigned int nStatus;
};

constexpr std::array<Corner, 4> atCorners = {
    {{DualCamAlign_NewMeasureLTPnt, ORVEX_LT, ORVEX_CORNER_LEFT_TOP},
     {DualCamAlign_NewMeasureRTPnt, ORVEX_RT, ORVEX_CORNER_RIGHT_TOP},
     {DualCamAlign_NewMeasureLDPnt, ORVEX_LD, ORVEX_CORNER_LEFT_DOWN},
     {DualCamAlign_NewMeasureRDPnt, ORVEX_RD, ORVEX_CORNER_RIGHT_DOWN}}};

void MeasureCorner(const Corner& tCorner, Plane& tBinary, Plane& tGrey, _POINTPOSITION ptCentre,
                   const _POINTPOSITION* p, int nMaster) {
    float* const pf = (nMaster != 0 ? m_tDualCamAlignData.afCornerPoint_Master
                                    : m_tDualCamAlignData.afCornerPoint_Slave)[tCorner.eSlot];
    pf[0] = pf[1] = -1234.5f;
    const unsigned int nStatus = tCorner.pMeasure(tBinary.Data(), tGrey.Data(), tGrey.Columns(), tGrey.Rows(),
                                                  ptCentre.x, ptCentre.y, p[0], p[1], p[2], p[3], nMaster);
    Require(nStatus == ORVEX_OK || nStatus == ORVEX_CORNER_STRIPE || nStatus == tCorner.nStatus,
            "a corner has its own statuses");
    Require((nStatus != ORVEX_OK) == (pf[0] == -1234.5f && pf[1] == -1234.5f),
            "a corner is written on success only");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    const int nMaster = t.OneIn(4) ? t.Coordinate(0, 1) : t.Int(0, 1);
    for (auto& ad : m_tDualCamAlignData.adFrameThreshold_Master)
        for (double& d : ad)
            d = t.Real(100);
    Plane tGrey = PaintChart(t, tView);
    Plane tBinary = Binarised(tGrey, t.Byte(100));
    if (t.OneIn(4))
        PaintPatches(t, tBinary, 8);
    const _POINTPOSITION ptCentre = {t.Coordinate(110, 220), t.Coordinate(90, 180)};
    constexpr _POINTPOSITION atOrdinary[4] = {{2, 2}, {217, 177}, {38, 38}, {181, 141}};
    _POINTPOSITION at[4];
    for (std::size_t i = 0; i < 4; ++i)
        at[i] = {t.Coordinate(atOrdinary[i].x, 220), t.Coordinate(atOrdinary[i].y, 180)};
    for (const Corner& tCorner : atCorners)
        MeasureCorner(tCorner, tBinary, tGrey, ptCentre, at, nMaster);
    return 0;
}

// Binarisation of the centre window and the search for the cross, under any window, threshold and centre.

#include "Orvex_Alignment_Stages.h"
#include "painting.h"
#include "require.h"

using namespace fuzz;

namespace {

constexpr View tView = {250, 230, 122, 112};

bool IsCrossStatus(unsigned int n) {
    return n == ORVEX_OK || (n >= ORVEX_CROSS_NO_COLUMN_RUN && n <= ORVEX_CROSS_COLUMN_BAR_OUTSIDE);
}

struct Search {
    double dWidthRatio, dHeightRatio, dBinaryRatio;
    bool bMaster;
};

void SearchCross(Input& t, Plane& tGrey, Plane& tBinary, const Search& tSearch, unsigned short* pCentre,
                 bool bRefine) {
    double dAngle = 1234.5;
    float afCentre[2];
    int nSpan = 0;
    const int nBinarised = DualCamAlign_BinaryImage(
        tGrey.Data(), tGrey.nColumns, tGrey.nRows, tSearch.dBinaryRatio, nullptr, tBinary.Data(),
        tSearch.dWidthRatio, tSearch.dHeightRatio, tSearch.bMaster, pCentre, bRefine);
    Require(nBinarised == 1, "a usable picture is binarised");
    for (const unsigned char ub : tBinary.aPixels)
        Require(ub == 0 || ub == 255, "a binary plane is dark and bright only");
    if (t.OneIn(4))
        PaintPatches(t, tBinary, 8);
    if (t.OneIn(8)) // a threshold that is not this window's
        (tSearch.bMaster ? m_tDualCamAlignData.dBinaryThreshold_Master
                         : m_tDualCamAlignData.dBinaryThreshold_Slave) = t.Real(100);
    const unsigned int nStatus = DualCamAlign_CalculateIntersectionAndAngle(
        tBinary.Data(), tGrey.Data(), tGrey.nColumns, tGrey.nRows, &dAngle, afCentre, &nSpan, nullptr,
        nullptr, nullptr, tSearch.dWidthRatio, tSearch.dHeightRatio, tSearch.bMaster, pCentre, bRefine);
    Require(IsCrossStatus(nStatus), "the cross has its own statuses");
    Require((dAngle != 1234.5) == (bRefine && nStatus == ORVEX_OK), "the angle is written on success only");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    DualCamAlignParam& tParam = *DualCamAlign_LoadParameters_ForAndroid();
    tParam.fSlaveShift = t.Float(-2.0f);
    tParam.bShiftAlongY = t.Byte(1);
    const Search tSearch = {t.Real(0.6), t.Real(0.6), t.Real(0.6), !t.OneIn(2)};
    Plane tGrey = PaintChart(t, tView), tBinary(tGrey.nColumns, tGrey.nRows, 7);
    unsigned short auwCentre[2] = {0, 0};
    SearchCross(t, tGrey, tBinary, tSearch, auwCentre, false);
    if (t.OneIn(2))
        for (unsigned short& uw : auwCentre)
            uw = static_cast<unsigned short>(t.OneIn(4) ? t.Int(0, 65535) : t.Int(0, 260));
    SearchCross(t, tGrey, tBinary, tSearch, auwCentre, true);
    return 0;
}

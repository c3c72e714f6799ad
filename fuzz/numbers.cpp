// The steps that see no picture: lengths, transfer, angles, order and record, from any numbers at all.

#include "Orvex_Alignment_Stages.h"
#include "entry/angle_range.h"
#include "entry/autofocus_record.h"
#include "input.h"
#include "require.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

using namespace fuzz;

namespace {

template <typename Block>
void FillFrom(Input& t, Block& tBlock) {
    const std::vector<unsigned char> a = t.Bytes(sizeof tBlock);
    if (!a.empty())
        std::memcpy(&tBlock, a.data(), a.size());
}

void Judge(Input& t) {
    DualCamAlign_LoadParameters_ForAndroid();
    FillFrom(t, m_tDualCamAlignParam);
    FillFrom(t, m_tDualCamAlignData);
    unsigned char* const pKept = m_pCMainView.pGreenBuffer;
    FillFrom(t, m_pCMainView);
    m_pCMainView.pGreenBuffer = pKept;
    for (const bool bMaster : {false, true}) {
        float afExtent[2];
        Require(DualCamAlign_NewMeasureSquareLength(afExtent, bMaster) == ORVEX_OK, "lengths never fail");
    }
    std::vector<float> afPoints(static_cast<std::size_t>(t.Int(0, 8)) * 2);
    for (float& f : afPoints)
        f = t.Float(800.0f);
    std::vector<float> afTransferred(afPoints.size());
    DualCamAlign_CoordinateTransfer(afPoints.data(), afTransferred.data(),
                                    t.OneIn(8) ? -t.Int(0, INT_MAX) : static_cast<int>(afPoints.size() / 2));
    Require(DualCamAlign_FirstResultJudgement() == ORVEX_OK, "the judgement never fails");
}

void MakeRecord(Input& t) {
    const float afMaster[] = {t.Float(864.0f), t.Float(486.0f)};
    const float afSlave[] = {t.Float(864.0f), t.Float(462.0f)};
    std::vector<unsigned char> aCalibration(ORVEX_CALIBRATION_SIZE);
    for (const std::size_t n : {13u, 14u, 15u, 16u, 2911u, 2912u, 2913u, 2914u})
        aCalibration[n] = t.Byte();
    const _AFPROTECT tRecord = orvex::MakeRecord(afMaster, afSlave, aCalibration.data());
    const auto* const pub = reinterpret_cast<const unsigned char*>(&tRecord);
    Require(orvex::RecordChecksum(pub + orvex::nVersionBytes) == tRecord.ubCheckSum, "the checksum fits");
}

void Rescale(Input& t) {
    const double d = t.Real(1.5), dRescaled = orvex::RescaledAngle(d);
    Require(!(std::fabs(d) <= 360) || std::fabs(dRescaled) <= std::fabs(d), "no angle is enlarged");
    Require(!std::isnan(d) || !orvex::IsOutOfRange(dRescaled), "no angle is not out of range");
}

// Between the numbers that are none, descending; each index still belongs to its value.
void Sort(Input& t) {
    std::vector<double> ad(static_cast<std::size_t>(t.Int(0, 60)));
    for (double& d : ad)
        d = t.Real(t.Int(0, 4));
    std::vector<unsigned short> auw(ad.size());
    for (std::size_t i = 0; i < auw.size(); ++i)
        auw[i] = static_cast<unsigned short>(i);
    const std::vector<double> adBefore = ad;
    bubblesort(ad.data(), auw.data(), static_cast<int>(ad.size()));
    for (std::size_t i = 0; i < ad.size(); ++i) {
        Require(std::bit_cast<std::uint64_t>(ad[i]) == std::bit_cast<std::uint64_t>(adBefore[auw[i]]),
                "an index follows its value");
        Require(i == 0 || !(ad[i - 1] < ad[i]), "values descend");
        Require(i == 0 || ad[i - 1] != ad[i] || auw[i - 1] < auw[i], "equal values keep their order");
    }
}

void ReadVersion(Input& t) {
    const int nSize = t.Coordinate(13, 20);
    std::vector<char> a(static_cast<std::size_t>(std::clamp(nSize, 0, 13)));
    Orvex_GetVersion(a.data(), nSize);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    for (const auto Step : {Rescale, MakeRecord, ReadVersion, Sort, Judge})
        Step(t);
    return 0;
}

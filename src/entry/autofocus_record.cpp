#include "entry/autofocus_record.h"

#include "core/to_integer.h"

#include <cmath>
#include <cstddef>
#include <numeric>

const unsigned char AF_ProtectVersion[2] = {1, 0};

namespace orvex {
namespace {

constexpr int nFirstPair = 13;
constexpr int nSecondPair = 2911;
static_assert(nSecondPair + 4 == ORVEX_CALIBRATION_SIZE);

// The line runs through the pair's first number at dFirstPosition; dTravel lies between the two.
constexpr double dTravel = 0.176879;
constexpr double dFirstPosition = 0.179622;

struct FocusLine {
    float fSlope;
    float fOffset;
};

FocusLine FocusLineOf(const unsigned char* pPair) {
    const int a = pPair[0] * 256 + pPair[1], b = pPair[2] * 256 + pPair[3];
    const auto fSlope = static_cast<float>((a - b) / dTravel);
    // The one fused step of the library: a - slope x position, rounded once.
    const auto fOffset = static_cast<float>(std::fma(-static_cast<double>(fSlope), dFirstPosition, a));
    return {fSlope, fOffset};
}

// Difference in single precision, whole pixels; of an int the low 16 bits.
short Shift(float fSlave, float fMaster) {
    return static_cast<short>(static_cast<unsigned short>(ToInt(fSlave - fMaster)));
}

} // namespace

AutofocusFloats AutofocusFloatsOf(const unsigned char* pCalibData) {
    const FocusLine tFirst = FocusLineOf(pCalibData + nFirstPair);
    const FocusLine tSecond = FocusLineOf(pCalibData + nSecondPair);
    return {tFirst.fSlope, tFirst.fOffset, tSecond.fSlope, tSecond.fOffset};
}

unsigned char RecordChecksum(const unsigned char* pPlain) {
    constexpr std::size_t nSummed = offsetof(_AFPROTECT, ubCheckSum) - nVersionBytes;
    return static_cast<unsigned char>(std::accumulate(pPlain, pPlain + nSummed, 0u));
}

_AFPROTECT MakeRecord(const float* pfMasterCentre, const float* pfSlaveCentre,
                      const unsigned char* pCalibData) {
    const AutofocusFloats tFloats = AutofocusFloatsOf(pCalibData);
    _AFPROTECT t = {};
    t.ubVersionMajor = AF_ProtectVersion[0];
    t.ubVersionMinor = AF_ProtectVersion[1];
    t.swShiftX = Shift(pfSlaveCentre[0], pfMasterCentre[0]);
    t.swShiftY = Shift(pfSlaveCentre[1], pfMasterCentre[1]);
    t.fAFSlope1 = tFloats.fSlope1;
    t.fAFOffset1 = tFloats.fOffset1;
    t.fAFSlope2 = tFloats.fSlope2;
    t.fAFOffset2 = tFloats.fOffset2;
    t.ubCheckSum = RecordChecksum(reinterpret_cast<const unsigned char*>(&t) + nVersionBytes);
    return t;
}

} // namespace orvex

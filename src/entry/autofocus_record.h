#pragma once

#include "Orvex_Alignment.h"

namespace orvex {

constexpr int nVersionBytes = 2;
constexpr int nRecordBytes = 151;
constexpr int nPlainBytes = nRecordBytes - nVersionBytes; // the part that is encrypted
static_assert(sizeof(_AFPROTECT) == nRecordBytes);

// The record's four floats, in its order.
struct AutofocusFloats {
    float fSlope1;
    float fOffset1;
    float fSlope2;
    float fOffset2;
};

// From the two pairs of 16-bit big-endian numbers at bytes 13 and 2911 of the calibration memory.
AutofocusFloats AutofocusFloatsOf(const unsigned char* pCalibData);

// Sum modulo 256 of the 20 bytes behind the version, pPlain.
unsigned char RecordChecksum(const unsigned char* pPlain);

// The whole record, from the measured centres (x, y, px) and the calibration memory.
_AFPROTECT MakeRecord(const float* pfMasterCentre, const float* pfSlaveCentre,
                      const unsigned char* pCalibData);

} // namespace orvex

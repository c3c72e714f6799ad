#pragma once

constexpr int nRecordKeyBytes = 32;

// The record file's key, rewritten by every call that writes or reads a record.
extern unsigned char key_3[nRecordKeyBytes];

// Derives the 32-byte key from bytes 0 to 2914 of the calibration memory. Returns false if the cryptography
// library fails; the key is then of no use.
bool Orvex_GenerateKey(const unsigned char* pCalibData, unsigned char* pKey);

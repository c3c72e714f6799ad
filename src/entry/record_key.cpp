#include "entry/record_key.h"

#include "Orvex_Alignment.h"

#include <cstring>
#include <psa/crypto.h>

unsigned char key_3[nRecordKeyBytes];

bool Orvex_GenerateKey(const unsigned char* pCalibData, unsigned char* pKey) {
    // The label keeps this key apart from any other digest of the same memory.
    constexpr char szLabel[] = "Orvex autofocus record key, version 1";
    constexpr std::size_t nLabel = sizeof szLabel - 1;
    unsigned char aubInput[nLabel + ORVEX_CALIBRATION_SIZE];
    std::memcpy(aubInput, szLabel, nLabel);
    std::memcpy(aubInput + nLabel, pCalibData, ORVEX_CALIBRATION_SIZE);
    std::size_t nLength = 0;
    return psa_crypto_init() == PSA_SUCCESS &&
           psa_hash_compute(PSA_ALG_SHA_256, aubInput, sizeof aubInput, pKey, nRecordKeyBytes, &nLength) ==
               PSA_SUCCESS;
}

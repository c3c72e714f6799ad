#include "support/failing_cryptography.h"

#include <dlfcn.h>
#include <psa/crypto.h>

namespace support {

std::string g_strFailingCall;
int g_nFailedCalls = 0;

} // namespace support

// These stand in front of the cryptography library's own, also for its calls of itself.
#define ORVEX_STAND_BEFORE(Function, Parameters, ...)                                                        \
    extern "C" psa_status_t Function Parameters {                                                            \
        if (support::g_strFailingCall == #Function) {                                                        \
            ++support::g_nFailedCalls;                                                                       \
            return PSA_ERROR_HARDWARE_FAILURE;                                                               \
        }                                                                                                    \
        return reinterpret_cast<decltype(&(Function))>(dlsym(RTLD_NEXT, #Function))(__VA_ARGS__);            \
    }

ORVEX_STAND_BEFORE(psa_crypto_init, (void))
ORVEX_STAND_BEFORE(psa_generate_random, (uint8_t * p, std::size_t n), p, n)
ORVEX_STAND_BEFORE(psa_hash_compute,
                   (psa_algorithm_t nAlgorithm, const uint8_t* pIn, std::size_t nIn, uint8_t* pHash,
                    std::size_t nHash, std::size_t* pnWritten),
                   nAlgorithm, pIn, nIn, pHash, nHash, pnWritten)
ORVEX_STAND_BEFORE(psa_import_key,
                   (const psa_key_attributes_t* pAttributes, const uint8_t* pKey, std::size_t nKey,
                    mbedtls_svc_key_id_t* pId),
                   pAttributes, pKey, nKey, pId)
ORVEX_STAND_BEFORE(psa_cipher_encrypt,
                   (mbedtls_svc_key_id_t nKey, psa_algorithm_t nAlgorithm, const uint8_t* pIn,
                    std::size_t nIn, uint8_t* pOut, std::size_t nOut, std::size_t* pnWritten),
                   nKey, nAlgorithm, pIn, nIn, pOut, nOut, pnWritten)
ORVEX_STAND_BEFORE(psa_cipher_decrypt,
                   (mbedtls_svc_key_id_t nKey, psa_algorithm_t nAlgorithm, const uint8_t* pIn,
                    std::size_t nIn, uint8_t* pOut, std::size_t nOut, std::size_t* pnWritten),
                   nKey, nAlgorithm, pIn, nIn, pOut, nOut, pnWritten)

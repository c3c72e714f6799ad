#include "entry/aes_cbc.h"

#include <cstddef>
#include <psa/crypto.h>

namespace orvex {
namespace {

// A key in the cryptography library, for one operation.
class ImportedKey {
public:
    ImportedKey(const unsigned char* pKey, int nKey, psa_key_usage_t nUsage) {
        psa_key_attributes_t tAttributes = PSA_KEY_ATTRIBUTES_INIT;
        psa_set_key_usage_flags(&tAttributes, nUsage);
        psa_set_key_algorithm(&tAttributes, PSA_ALG_CBC_NO_PADDING);
        psa_set_key_type(&tAttributes, PSA_KEY_TYPE_AES);
        m_bUsable = psa_crypto_init() == PSA_SUCCESS &&
                    psa_import_key(&tAttributes, pKey, static_cast<std::size_t>(nKey), &m_nId) == PSA_SUCCESS;
    }
    ~ImportedKey() { psa_destroy_key(m_nId); }
    ImportedKey(const ImportedKey&) = delete;
    ImportedKey& operator=(const ImportedKey&) = delete;

    bool IsUsable() const { return m_bUsable; }
    psa_key_id_t Id() const { return m_nId; }

private:
    psa_key_id_t m_nId = PSA_KEY_ID_NULL;
    bool m_bUsable = false;
};

} // namespace

bool EncryptBlocks(const unsigned char* pKey, int nKey, const unsigned char* pPlain, int nBytes,
                   unsigned char* pVectorAndBlocks) {
    const ImportedKey tKey(pKey, nKey, PSA_KEY_USAGE_ENCRYPT);
    const auto nPlain = static_cast<std::size_t>(nBytes);
    std::size_t nWritten = 0;
    return tKey.IsUsable() &&
           psa_cipher_encrypt(tKey.Id(), PSA_ALG_CBC_NO_PADDING, pPlain, nPlain, pVectorAndBlocks,
                              nAesBlock + nPlain, &nWritten) == PSA_SUCCESS &&
           nWritten == nAesBlock + nPlain;
}

bool DecryptBlocks(const unsigned char* pKey, int nKey, const unsigned char* pVectorAndBlocks, int nBytes,
                   unsigned char* pPlain) {
    const ImportedKey tKey(pKey, nKey, PSA_KEY_USAGE_DECRYPT);
    const auto nPlain = static_cast<std::size_t>(nBytes);
    std::size_t nWritten = 0;
    return tKey.IsUsable() &&
           psa_cipher_decrypt(tKey.Id(), PSA_ALG_CBC_NO_PADDING, pVectorAndBlocks, nAesBlock + nPlain, pPlain,
                              nPlain, &nWritten) == PSA_SUCCESS &&
           nWritten == nPlain;
}

} // namespace orvex

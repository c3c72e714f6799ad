#include "entry/aes_cbc.h"

#include <cstddef>
#include <psa/crypto.h>
#include <span>

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

// Both directions take their arguments alike.
using Cipher = decltype(&psa_cipher_encrypt);

bool Run(Cipher pCipher, psa_key_usage_t nUsage, const unsigned char* pKey, int nKey,
         std::span<const unsigned char> aubIn, std::span<unsigned char> aubOut) {
    const ImportedKey tKey(pKey, nKey, nUsage);
    std::size_t nWritten = 0;
    return tKey.IsUsable() &&
           pCipher(tKey.Id(), PSA_ALG_CBC_NO_PADDING, aubIn.data(), aubIn.size(), aubOut.data(),
                   aubOut.size(), &nWritten) == PSA_SUCCESS &&
           nWritten == aubOut.size();
}

} // namespace

bool EncryptBlocks(const unsigned char* pKey, int nKey, const unsigned char* pPlain, int nBytes,
                   unsigned char* pVectorAndBlocks) {
    const auto nPlain = static_cast<std::size_t>(nBytes);
    return Run(psa_cipher_encrypt, PSA_KEY_USAGE_ENCRYPT, pKey, nKey, {pPlain, nPlain},
               {pVectorAndBlocks, nAesBlock + nPlain});
}

bool DecryptBlocks(const unsigned char* pKey, int nKey, const unsigned char* pVectorAndBlocks, int nBytes,
                   unsigned char* pPlain) {
    const auto nPlain = static_cast<std::size_t>(nBytes);
    return Run(psa_cipher_decrypt, PSA_KEY_USAGE_DECRYPT, pKey, nKey, {pVectorAndBlocks, nAesBlock + nPlain},
               {pPlain, nPlain});
}

} // namespace orvex

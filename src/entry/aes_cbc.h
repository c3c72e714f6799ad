#pragma once

namespace orvex {

constexpr int nAesBlock = 16;

// AES-CBC without padding over whole blocks; the initialisation vector precedes the encrypted blocks. nBytes
// counts the plain bytes. False if the key has no AES length or the cryptography library fails.
bool EncryptBlocks(const unsigned char* pKey, int nKey, const unsigned char* pPlain, int nBytes,
                   unsigned char* pVectorAndBlocks);
bool DecryptBlocks(const unsigned char* pKey, int nKey, const unsigned char* pVectorAndBlocks, int nBytes,
                   unsigned char* pPlain);

} // namespace orvex

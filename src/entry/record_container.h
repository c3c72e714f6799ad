#pragma once

// The record file's container: a header of 16 bytes, an initialisation vector of 16, fresh for every file,
// and AES-CBC blocks.
//
//   bytes 0-3  "OAES"        byte 4  1 (version)      byte 5  2 (encrypted data)
//   bytes 6-7  options, little-endian: bit 0 ECB, bit 1 CBC, bits 2 and 3 without meaning
//   byte 8     flags: bit 0, the last block is padded with 1, 2, 3, ...; a whole block gets no padding
//   bytes 9-15 zero

constexpr int nMostPlainBytes = 620; // of one container

// Encrypts nPlain bytes under a key of nKey bytes. *pnOut: capacity of pOut, then the container's length.
// Returns false, with nothing usable in pOut, if it does not fit, the key has no AES length, or the
// cryptography or random source fails.
bool OAES_Encrypt(const unsigned char* pKey, int nKey, const unsigned char* pPlain, int nPlain,
                  unsigned char* pOut, int* pnOut);

// Decrypts a container of nIn bytes. *pnOut: capacity of pOut, then the plain length. Returns false, with
// pOut and *pnOut untouched, for a malformed container or padding, or a plain text that does not fit.
bool OAES_Decrypt(const unsigned char* pKey, int nKey, const unsigned char* pIn, int nIn, unsigned char* pOut,
                  int* pnOut);

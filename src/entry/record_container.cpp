#include "entry/record_container.h"

#include "entry/aes_cbc.h"

#include <algorithm>
#include <cstring>

using orvex::nAesBlock;

namespace {

constexpr int nHeader = 16;
constexpr int nVectorAt = nHeader;
constexpr int nBlocksAt = nHeader + nAesBlock;
constexpr int nOptionsAt = 6, nFlagsAt = 8;
constexpr unsigned char aubMagic[] = {'O', 'A', 'E', 'S', 1, 2};
constexpr unsigned int nOptionEcb = 1, nOptionCbc = 2, nOptionsWithoutMeaning = 4 | 8;
constexpr unsigned char ubPadded = 1;

constexpr int InWholeBlocks(int nBytes) {
    return (nBytes + nAesBlock - 1) / nAesBlock * nAesBlock;
}

constexpr int nMostBlockBytes = InWholeBlocks(nMostPlainBytes);

bool IsReadableHeader(const unsigned char* p) {
    const unsigned int nOptions = p[nOptionsAt] + 256u * p[nOptionsAt + 1];
    const bool bCbc = (nOptions & nOptionCbc) != 0 && (nOptions & nOptionEcb) == 0 &&
                      (nOptions & ~(nOptionEcb | nOptionCbc | nOptionsWithoutMeaning)) == 0;
    return std::memcmp(p, aubMagic, sizeof aubMagic) == 0 && bCbc && p[nFlagsAt] <= ubPadded &&
           std::all_of(p + nFlagsAt + 1, p + nHeader, [](unsigned char ub) { return ub == 0; });
}

// Bytes of padding at the end of the blocks: 1, 2, 3, ... up to 15; 0 if there is no such run.
int PaddingOf(const unsigned char* pEnd) {
    const int nPad = pEnd[-1];
    if (nPad >= nAesBlock)
        return 0;
    for (int i = 1; i <= nPad; ++i)
        if (pEnd[i - 1 - nPad] != i)
            return 0;
    return nPad;
}

} // namespace

bool OAES_Encrypt(const unsigned char* pKey, int nKey, const unsigned char* pPlain, int nPlain,
                  unsigned char* pOut, int* pnOut) {
    if (nPlain < 1 || nPlain > nMostPlainBytes)
        return false;
    const int nBlocks = InWholeBlocks(nPlain);
    if (*pnOut < nBlocksAt + nBlocks)
        return false;
    unsigned char aubBlocks[nMostBlockBytes];
    std::memcpy(aubBlocks, pPlain, static_cast<std::size_t>(nPlain));
    for (int i = nPlain; i < nBlocks; ++i)
        aubBlocks[i] = static_cast<unsigned char>(i - nPlain + 1);
    std::memset(pOut, 0, nHeader);
    std::memcpy(pOut, aubMagic, sizeof aubMagic);
    pOut[nOptionsAt] = nOptionCbc;
    pOut[nFlagsAt] = nBlocks != nPlain ? ubPadded : 0;
    if (!orvex::EncryptBlocks(pKey, nKey, aubBlocks, nBlocks, pOut + nVectorAt))
        return false;
    *pnOut = nBlocksAt + nBlocks;
    return true;
}

bool OAES_Decrypt(const unsigned char* pKey, int nKey, const unsigned char* pIn, int nIn, unsigned char* pOut,
                  int* pnOut) {
    if (nIn < nBlocksAt + nAesBlock || nIn > nBlocksAt + nMostBlockBytes || nIn % nAesBlock != 0 ||
        !IsReadableHeader(pIn))
        return false;
    const int nBlocks = nIn - nBlocksAt;
    unsigned char aubBlocks[nMostBlockBytes];
    if (!orvex::DecryptBlocks(pKey, nKey, pIn + nVectorAt, nBlocks, aubBlocks))
        return false;
    const bool bPadded = pIn[nFlagsAt] == ubPadded;
    const int nPad = bPadded ? PaddingOf(aubBlocks + nBlocks) : 0;
    const int nPlain = nBlocks - nPad;
    if ((bPadded && nPad == 0) || nPlain > *pnOut)
        return false;
    std::memcpy(pOut, aubBlocks, static_cast<std::size_t>(nPlain));
    *pnOut = nPlain;
    return true;
}

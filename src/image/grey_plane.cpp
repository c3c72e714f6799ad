#include "Orvex_Alignment_Stages.h"

#include <cstring>

void GetGValueFromRGB(unsigned char* pSrc, long nImageWidth, long nImageHeight, unsigned char* pDst) {
    // The host decides which channel the plane holds. Only the low 32 bits of the sizes take part.
    const auto nPixels = static_cast<std::int32_t>(std::uint64_t{static_cast<std::uint32_t>(nImageWidth)} *
                                                   static_cast<std::uint32_t>(nImageHeight));
    if (nPixels > 0 && pSrc != nullptr && pDst != nullptr)
        std::memmove(pDst, pSrc, static_cast<std::size_t>(nPixels));
}

#include "Orvex_Alignment_Stages.h"

#include <utility>

void bubblesort(double* pValues, unsigned short* pIndex, int nCount) {
    if (pValues == nullptr || pIndex == nullptr || nCount < 2)
        return;
    // Plain bubble passes: their order decides ties, and a NaN stays where it is because it never compares.
    for (int nLast = nCount - 1; nLast >= 1; --nLast)
        for (int j = 0; j < nLast; ++j)
            if (pValues[j] < pValues[j + 1]) {
                std::swap(pValues[j], pValues[j + 1]);
                std::swap(pIndex[j], pIndex[j + 1]);
            }
}

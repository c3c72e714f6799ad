#include "Orvex_Alignment_Stages.h"

#include <algorithm>
#include <cmath>
#include <functional>

void bubblesort(double* pValues, unsigned short* pIndex, int nCount) {
    if (pValues == nullptr || pIndex == nullptr)
        return;
    // Each value is inserted into the sorted ones before it: what bubble passes give, in a fraction of their
    // comparisons. A NaN never compares, so that nothing moves past it.
    int nFirst = 0; // behind the latest NaN
    for (int i = 0; i < nCount; ++i) {
        if (std::isnan(pValues[i]))
            nFirst = i + 1;
        if (i <= nFirst || pValues[i] <= pValues[i - 1])
            continue;
        double* const pPlace = std::upper_bound(pValues + nFirst, pValues + i, pValues[i], std::greater<>());
        unsigned short* const pIndexPlace = pIndex + (pPlace - pValues);
        std::rotate(pPlace, pValues + i, pValues + i + 1);
        std::rotate(pIndexPlace, pIndex + i, pIndex + i + 1);
    }
}

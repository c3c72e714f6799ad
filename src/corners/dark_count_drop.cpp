#include "corners/dark_count_drop.h"

#include "core/lasting_step.h"
#include "core/plane.h"

#include <cstdlib>

namespace orvex {
namespace {

constexpr int nSmallestDrop = 16; // px

int DarkPixels(LineView tLine, int nFirst, int nLast) {
    int nDark = 0;
    for (int n = nFirst; n <= nLast; ++n)
        nDark += tLine[n] == 0;
    return nDark;
}

} // namespace

bool FindDarkCountDrop(const unsigned char* pBinary, int nStride, int nX1, int nY1, int nX2, int nY2,
                       bool bRowLines, int* pnLine) {
    const int nStart = bRowLines ? nY1 : nX1;
    const int nEnd = bRowLines ? nY2 : nX2;
    const PlaneView tBinary = {pBinary, {nStride, 0}};
    const auto Count = [&](int n) {
        return bRowLines ? DarkPixels(tBinary.Row(n), nX1, nX2) : DarkPixels(tBinary.Column(n), nY1, nY2);
    };
    const auto IsDrop = [](int nBefore, int nCount) { return nBefore - nCount >= nSmallestDrop; };
    const LineWalk tWalk = {nStart, nStart > nEnd ? -1 : 1, std::abs(nEnd - nStart) + 1};
    const std::optional<int> oDrop = FindLastingStep(tWalk, 0, Count, IsDrop);
    if (oDrop && pnLine != nullptr)
        *pnLine = *oDrop;
    return oDrop.has_value();
}

} // namespace orvex

#include "image/edge_scan.h"

#include "core/lasting_step.h"
#include "core/plane.h"

#include <cstdlib>

namespace orvex {
namespace {

// Between neighbouring lines of 5 pixels: more than 9 grey levels of mean brightness.
constexpr int nLargestSumChangeOfNoEdge = 45;

int SumOfLine(LineView tLine, int nFirst, int nLast) {
    unsigned int nSum = 0;
    for (int n = nFirst; n <= nLast; ++n)
        nSum += static_cast<unsigned int>(tLine[n]);
    return static_cast<int>(nSum);
}

} // namespace

bool FindEdgeByLineSum(const unsigned char* pGray, int nStride, int nX1, int nY1, int nX2, int nY2,
                       bool bRowLines, int* pnEdge) {
    const int nStart = bRowLines ? nY1 : nX1;
    const int nTarget = bRowLines ? nY2 : nX2;
    if (nStart == nTarget)
        return false;
    const PlaneView tGrey = {pGray, {nStride, 0}};
    const auto LineSum = [&](int n) {
        return bRowLines ? SumOfLine(tGrey.Row(n), nX1, nX2) : SumOfLine(tGrey.Column(n), nY1, nY2);
    };
    const auto IsEdge = [](int nBefore, int nSum) {
        return std::abs(nBefore - nSum) > nLargestSumChangeOfNoEdge;
    };
    const LineWalk tWalk = {nStart, nStart > nTarget ? -1 : 1, std::abs(nStart - nTarget)};
    const std::optional<int> oEdge = FindLastingStep(tWalk, LineSum(nStart), LineSum, IsEdge);
    if (oEdge && pnEdge != nullptr)
        *pnEdge = *oEdge;
    return oEdge.has_value();
}

} // namespace orvex

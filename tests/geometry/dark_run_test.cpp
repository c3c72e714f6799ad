#include "geometry/dark_run.h"

#include "support/any_plane.h"

#include <gtest/gtest.h>

using namespace orvex;
using namespace support;

namespace {

std::optional<double> PlainCentre(LineView tLine, int nLength, Range tInner, double dThreshold) {
    const Range t = Trimmed(tInner, [&](std::int64_t n) { return tLine[n] <= static_cast<int>(dThreshold); });
    if (t.IsEmpty())
        return std::nullopt;
    const auto Edge = [&](std::int64_t n, int nOutward) {
        const std::int64_t nNeighbour = n + nOutward;
        const bool bInside = nNeighbour >= 0 && nNeighbour < nLength;
        const int nRise = bInside ? tLine[nNeighbour] - tLine[n] : 0;
        return nRise == 0 ? static_cast<double>(n)
                          : static_cast<double>(n) + nOutward * ((dThreshold - tLine[n]) / nRise);
    };
    return (Edge(t.nFirst, -1) + Edge(t.nLast, 1)) * 0.5;
}

} // namespace

TEST(DarkRun, WordsGiveTheRunsThatTheWalkAlongEachLineGives) {
    Random t(10);
    for (int i = 0; i < 4000; ++i) {
        const Plane tPlane = AnyPlane(t);
        const PlaneView tGrey = ViewOf(tPlane);
        const bool bColumns = t.Int(0, 1) == 0;
        const Rect tRect = AnyRect(t, tPlane);
        const Range tX = tRect.tColumns, tY = tRect.tRows;
        const GreyLines tLines = {tGrey, bColumns, bColumns ? tX : tY, bColumns ? tY : tX};
        const double dThreshold = t.Int(0, 4) == 0 ? t.Real(-300, 600) : t.Real(0, 60);
        std::int64_t nExpected = tLines.tLines.nFirst;
        ForEachDarkRunCentre(tLines, dThreshold, [&](std::int64_t nLine, std::optional<double> oCentre) {
            EXPECT_EQ(nLine, nExpected++);
            const LineView tLine = bColumns ? tGrey.Column(nLine) : tGrey.Row(nLine);
            EXPECT_EQ(oCentre, PlainCentre(tLine, bColumns ? tPlane.nRows : tPlane.nColumns, tLines.tInner,
                                           dThreshold))
                << "plane " << i;
            return true;
        });
        EXPECT_EQ(nExpected, tLines.tLines.IsEmpty() ? tLines.tLines.nFirst : tLines.tLines.nLast + 1);
    }
}

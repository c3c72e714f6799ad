#include "image/edge_scan.h"

#include "support/plane.h"

#include <gtest/gtest.h>

using support::Plane;

namespace {

// Brightness of the lines of a picture 1 px wide: a segment of one pixel has the value as its sum.
Plane Lines(const std::vector<unsigned char>& aValues) {
    Plane t(1, static_cast<int>(aValues.size()), 0);
    t.aPixels = aValues;
    return t;
}

std::vector<unsigned char> Runs(std::initializer_list<std::pair<int, unsigned char>> atRuns) {
    std::vector<unsigned char> a;
    for (const auto& [nLines, ubGrey] : atRuns)
        a.insert(a.end(), static_cast<std::size_t>(nLines), ubGrey);
    return a;
}

constexpr int nNone = -1;

int EdgeOf(const std::vector<unsigned char>& aValues, int nStart, int nTarget) {
    int nEdge = nNone;
    const bool bFound =
        orvex::FindEdgeByLineSum(Lines(aValues).Data(), 1, 0, nStart, 0, nTarget, true, &nEdge);
    EXPECT_EQ(bFound, nEdge != nNone);
    return nEdge;
}

} // namespace

TEST(EdgeScan, FindsTheFirstLastingStep) {
    std::vector<unsigned char> aRamp;
    for (int i = 0; i < 6; ++i)
        aRamp.push_back(static_cast<unsigned char>(i * 45));
    const struct {
        const char* szCase;
        std::vector<unsigned char> aValues;
        int nStart, nTarget, nEdge;
    } at[] = {
        {"uniform", Runs({{20, 100}}), 0, 20, nNone},
        {"a step of 45 is no edge", Runs({{10, 100}, {10, 145}}), 0, 20, nNone},
        {"a step of 46 is one", Runs({{10, 100}, {10, 146}}), 0, 20, 10},
        {"downward", Runs({{10, 146}, {10, 100}}), 0, 20, 10},
        {"a ramp of 45 per line", aRamp, 0, 6, nNone},
        {"a single line is skipped", Runs({{5, 100}, {1, 200}, {5, 100}, {9, 200}}), 0, 20, 11},
        {"toward 0 the scan stops at 1", Runs({{1, 200}, {19, 100}}), 10, 0, nNone},
        {"the line before the target counts unconfirmed", Runs({{2, 200}, {18, 100}}), 10, 0, 1},
        {"toward the size the last line is reached", Runs({{19, 100}, {1, 200}}), 10, 20, 19},
        {"start at the target", Runs({{10, 100}, {10, 200}}), 10, 10, nNone},
        // Two false alarms of three lines use up the budget of confirmations: the third step is reported by
        // the first line after it, though the brightness comes back on the second.
        {"budget carried over", Runs({{3, 100}, {3, 200}, {3, 100}, {3, 200}, {3, 100}, {2, 200}, {3, 100}}),
         0, 20, 15},
        {"budget left over", Runs({{3, 100}, {3, 200}, {3, 100}, {2, 200}, {3, 100}, {2, 200}, {4, 100}}), 0,
         20, nNone},
    };
    for (const auto& t : at)
        EXPECT_EQ(EdgeOf(t.aValues, t.nStart, t.nTarget), t.nEdge) << t.szCase;
}

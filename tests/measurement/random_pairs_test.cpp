#include "support/documented_status.h"
#include "support/random_rectangles.h"
#include "support/repetitions.h"

#include <gtest/gtest.h>

// As in hostile_pictures_test.cpp, what these pictures give is of no interest.

using namespace support;

namespace {

// A chart that may be cropped, hang over the border or lie in a far too small picture.
Picture Chart(Random& t, int nColumns, int nRows) {
    chart::PairSetup tSetup;
    tSetup.tMaster = t.Int(0, 1) ? chart::ScaledTo(chart::DefaultMaster(), nColumns, nRows)
                                 : chart::Camera{nColumns, nRows, t.Real(300, 3000),
                                                 t.Real(-100, nColumns + 100.0), t.Real(-100, nRows + 100.0)};
    const chart::Pose tPose = {t.Real(-6, 6), t.Real(-6, 6), t.Real(-20, 20)};
    chart::Capture tCapture;
    tCapture.dNoiseSigma = t.Real(0, 10);
    tCapture.dGain = t.Real(0.2, 1.4);
    tCapture.nSeed = static_cast<std::uint64_t>(t.Int(0, 1 << 30));
    return chart::Shot{nColumns, nRows, chart::Render(tSetup.tChart, tSetup.tMaster, tPose, tCapture), {}};
}

Picture Any(Random& t, int nMostColumns, int nMostRows) {
    const int nColumns = t.Int(1, nMostColumns), nRows = t.Int(1, nMostRows);
    return t.Int(0, 2) ? Chart(t, nColumns, nRows) : Rectangles(t, nColumns, nRows);
}

} // namespace

TEST(HostilePictures, ThreeHundredRandomPairs) {
    Random t(2);
    testing::internal::CaptureStdout();
    for (int i = 0; i < Repetitions(300); ++i) {
        const Picture tMaster = i % 3 ? Picture(UprightChart()) : Any(t, 2000, 1500);
        const unsigned int nStatus = Align(tMaster, Any(t, 2000, 1500)).nStatus;
        EXPECT_TRUE(IsDocumented(nStatus)) << std::hex << nStatus << " for pair " << std::dec << i;
    }
    // A buffer that is sized by the master alone would be overrun by so large a slave.
    EXPECT_TRUE(IsDocumented(Align(UprightChart(), Rectangles(t, 4000, 3000)).nStatus));
    testing::internal::GetCapturedStdout();
}

#include "support/documented_status.h"
#include "support/get_align.h"
#include "support/random.h"

#include <gtest/gtest.h>

// What these pictures give is of no interest; that nothing is read or written out of bounds is: this file
// earns its keep under the sanitizers (`make test-asan`).

using namespace support;

namespace {

Picture Rectangles(Random& t, int nColumns, int nRows) {
    Plane tPlane(nColumns, nRows, static_cast<unsigned char>(t.Int(100, 255)));
    for (int i = t.Int(1, 30); i > 0; --i) {
        const int x = t.Int(-100, nColumns), y = t.Int(-100, nRows);
        tPlane.Fill(x, y, x + t.Int(0, nColumns), y + t.Int(0, i % 2 ? 20 : nRows),
                    static_cast<unsigned char>(t.Int(0, 255)));
    }
    for (int i = t.Int(0, 1) * nColumns * nRows / 2; i > 0; --i) // half of them with noise
        tPlane.At(t.Int(0, nColumns - 1), t.Int(0, nRows - 1)) = static_cast<unsigned char>(t.Int(0, 255));
    return tPlane;
}

} // namespace

TEST(HostilePictures, EverySizeUpTo64AndTheLongest) {
    Random t(1);
    testing::internal::CaptureStdout();
    for (const auto& [nColumns, nRows] : {std::pair(3, 65535), {65535, 3}}) {
        const Picture tPicture = Rectangles(t, nColumns, nRows);
        EXPECT_TRUE(IsDocumented(Align(tPicture, tPicture).nStatus)) << nColumns << " x " << nRows;
    }
    for (int nRows = 1; nRows <= 64; ++nRows)
        for (int nColumns = 1; nColumns <= 64; ++nColumns) {
            const Picture tPicture = Rectangles(t, nColumns, nRows);
            EXPECT_TRUE(IsDocumented(Align(tPicture, tPicture).nStatus)) << nColumns << " x " << nRows;
        }
    testing::internal::GetCapturedStdout();
}

#include "image/binary_window.h"

#include <gtest/gtest.h>
#include <vector>

using namespace orvex;

TEST(CleanSpecks, VisitsInPlaceInRasterOrderAndWrapsAtTheBorder) {
    // A plane of 4 x 3 with one byte row of white before and behind it, and a window over all of it.
    constexpr PictureSize tSize = {4, 3};
    const CentreWindow tWindow = {0, 3, 0, 2};
    const auto Cleaned = [&](std::vector<unsigned char> a) {
        std::vector<unsigned char> aGuarded(tSize.Pixels() + 2 * GuardBytes(tSize), 255);
        const auto pPlane = aGuarded.begin() + static_cast<std::ptrdiff_t>(GuardBytes(tSize));
        std::copy(a.begin(), a.end(), pPlane);
        CleanSpecks(tSize, tWindow, &*pPlane);
        return std::vector<unsigned char>(pPlane, pPlane + 12);
    };
    // The corner pixel at the right border has the dark left border of the next row as its neighbours: (3, 0)
    // sees (3, 1) below and, by linear address, (0, 1) to its right and (0, 2) below that, and stays.
    const std::vector<unsigned char> aWrapped = {255, 255, 255, 0, 0, 255, 255, 0, 0, 255, 255, 255};
    EXPECT_EQ(Cleaned(aWrapped)[3], 0);
    // In place: the first dark pixel of a row of three goes and takes the others with it.
    EXPECT_EQ(Cleaned({255, 255, 255, 255, 0, 0, 0, 255, 255, 255, 255, 255}),
              std::vector<unsigned char>(12, 255));
}

#include "chart/rotation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace chart {
namespace {

TEST(Rotation, SineAndCosineAreRightToDoubleRounding) {
    for (double d = -90; d <= 90; d += 0.37) {
        const auto [dSin, dCos] = SinCosOfDegrees(d);
        EXPECT_NEAR(dSin, std::sin(d * std::numbers::pi / 180), 4e-16) << d;
        EXPECT_NEAR(dCos, std::cos(d * std::numbers::pi / 180), 4e-16) << d;
    }
}

} // namespace
} // namespace chart

#include "core/to_integer.h"

#include <cstdint>
#include <gtest/gtest.h>

using orvex::ToInteger;

// The phone's processor defines these values; a plain cast differs between CPUs.
TEST(ToInteger, TruncatesTowardZeroSaturatesAndMapsNanToZero) {
    constexpr double dInfinity = std::numeric_limits<double>::infinity();
    const struct {
        double dValue;
        std::int32_t n32;
        std::int16_t n16;
    } at[] = {
        {0.0, 0, 0},
        {-0.0, 0, 0},
        {0.999999, 0, 0},
        {-0.999999, 0, 0},
        {1.5, 1, 1},
        {-24.217, -24, -24},
        {32767.9, 32767, 32767},
        {-32768.9, -32768, -32768},
        {40000.0, 40000, 32767},
        {-40000.0, -40000, -32768},
        {2147483647.5, INT32_MAX, 32767},
        {-2147483648.5, INT32_MIN, -32768},
        {1e300, INT32_MAX, 32767},
        {-1e300, INT32_MIN, -32768},
        {dInfinity, INT32_MAX, 32767},
        {-dInfinity, INT32_MIN, -32768},
        {std::numeric_limits<double>::quiet_NaN(), 0, 0},
        {std::numeric_limits<double>::denorm_min(), 0, 0},
    };
    for (const auto& t : at) {
        EXPECT_EQ(ToInteger<std::int32_t>(t.dValue), t.n32) << t.dValue;
        EXPECT_EQ(ToInteger<std::int16_t>(t.dValue), t.n16) << t.dValue;
    }
}

#include "entry/angle_range.h"

#include "Orvex_Alignment.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>

using orvex::IsOutOfRange;
using orvex::RescaledAngle;

TEST(Rescaling, KeepsSmallAnglesAndCompressesTheOthers) {
    for (const double d : {0.0, -0.0, 0.9, -0.9, 0.2, 0.999999, -0.999999})
        EXPECT_EQ(RescaledAngle(d), d);
    EXPECT_NEAR(RescaledAngle(1.0), 0.826087, 5e-7);
    EXPECT_NEAR(RescaledAngle(-1.0), -0.826087, 5e-7);
    EXPECT_EQ(RescaledAngle(2.5), 2.0);
    EXPECT_EQ(RescaledAngle(-2.5), -2.0);
    EXPECT_NEAR(RescaledAngle(2.6), 2.078261, 5e-7);
    EXPECT_TRUE(std::isnan(RescaledAngle(std::nan(""))));
    EXPECT_LT(RescaledAngle(-1e300), -1e299) << "saturates, and is no small angle";
}

TEST(Rescaling, RangeTakesItsLimitsAndNanIn) {
    for (const double d : {2.0, -2.0, 0.0, std::nan("")})
        EXPECT_FALSE(IsOutOfRange(d)) << d;
    for (const double d : {std::nextafter(2.0, 3.0), std::nextafter(-2.0, -3.0), HUGE_VAL})
        EXPECT_TRUE(IsOutOfRange(d)) << d;
}

TEST(Version, EachFunctionKeepsItsOwn) {
    char* const pszNew = getVersion();
    EXPECT_STREQ(pszNew, "v1313.47.10.02");
    EXPECT_EQ(pszNew[15], 0);
    std::free(pszNew);
    char sz[32];
    EXPECT_EQ(Orvex_Alignment_VersionInfo_Get(nullptr), -1);
    EXPECT_EQ(Orvex_Alignment_VersionInfo_Get(sz), 15);
    EXPECT_STREQ(sz, "v1313.47.10.02");
    const struct {
        int nSize;
        const char* szExpected;
    } at[] = {{20, "v1313.40.9.1"},
              {14, "v1313.40.9.1"},
              {13, "v1313.40.9.1"},
              {12, "v1313.40.9.1#"},
              {5, "v1313#"},
              {0, "#"},
              {-3, "#"}};
    for (const auto& t : at) {
        std::memset(sz, '#', sizeof sz);
        sz[sizeof sz - 1] = 0;
        Orvex_GetVersion(sz, t.nSize);
        EXPECT_EQ(std::strncmp(sz, t.szExpected, std::strlen(t.szExpected) + (t.nSize >= 13)), 0) << t.nSize;
    }
}

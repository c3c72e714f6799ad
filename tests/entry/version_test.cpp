#include "Orvex_Alignment.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

TEST(Version, EachFunctionKeepsItsOwn) {
    char* const pszNew = getVersion();
    EXPECT_STREQ(pszNew, "v1313.47.10.02");
    EXPECT_EQ(pszNew[15], 0);
    std::free(pszNew);
    char sz[32];
    EXPECT_EQ(Orvex_Alignment_VersionInfo_Get(nullptr), -1);
    EXPECT_EQ(Orvex_Alignment_VersionInfo_Get(sz), 15);
    EXPECT_STREQ(sz, "v1313.47.10.02");
    const std::pair<int, const char*> aCases[] = {{20, "v1313.40.9.1"},
                                                  {14, "v1313.40.9.1"},
                                                  {13, "v1313.40.9.1"},
                                                  {12, "v1313.40.9.1#"},
                                                  {5, "v1313#"},
                                                  {0, "#"},
                                                  {-3, "#"}};
    for (const auto& [nSize, szExpected] : aCases) {
        std::memset(sz, '#', sizeof sz);
        sz[sizeof sz - 1] = 0;
        Orvex_GetVersion(sz, nSize);
        EXPECT_EQ(std::strncmp(sz, szExpected, std::strlen(szExpected) + (nSize >= 13)), 0) << nSize;
    }
}

#include "Orvex_Alignment_Stages.h"
#include "support/random.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>

TEST(BubbleSort, GivesWhatBubblePassesGive) {
    support::Random t(4);
    for (int nCount = 0; nCount < 300; ++nCount) {
        std::vector<double> adValues, adPasses;
        std::vector<unsigned short> auwIndex, auwPasses;
        for (int i = 0; i <= nCount; ++i) { // many ties, now and then a NaN, and one that is not to be sorted
            adValues.push_back(nCount % 3 == 0 && t.Int(0, 9) == 0 ? std::nan("") : t.Int(-3, nCount / 4));
            auwIndex.push_back(static_cast<unsigned short>(i));
        }
        adPasses = adValues;
        auwPasses = auwIndex;
        for (int nLast = nCount - 1; nLast >= 1; --nLast)
            for (std::size_t j = 0; j < static_cast<std::size_t>(nLast); ++j)
                if (adPasses[j] < adPasses[j + 1]) {
                    std::swap(adPasses[j], adPasses[j + 1]);
                    std::swap(auwPasses[j], auwPasses[j + 1]);
                }
        bubblesort(adValues.data(), auwIndex.data(), nCount);
        EXPECT_EQ(auwIndex, auwPasses) << nCount;
        EXPECT_EQ(std::memcmp(adValues.data(), adPasses.data(), adValues.size() * sizeof(double)), 0)
            << nCount;
    }
}

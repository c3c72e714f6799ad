// `reading_tests --clean FIRST PAIRS` and `--dirt FIRST PAIRS`: whole studies.
#include "tools/reading/studies.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

int main(int nArguments, char** pszArguments) {
    testing::InitGoogleTest(&nArguments, pszArguments);
    if (nArguments != 4)
        return RUN_ALL_TESTS();
    const auto nFirst = static_cast<unsigned int>(std::stoul(pszArguments[2])),
               nPairs = static_cast<unsigned int>(std::stoul(pszArguments[3]));
    return std::strcmp(pszArguments[1], "--dirt") == 0 ? reading::StudyDirt(nFirst, nPairs)
                                                       : reading::StudyClean(nFirst, nPairs);
}

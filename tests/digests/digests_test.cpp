// Holds every bit of many measurements against the kept ones. `digest_tests --write` prints them anew: see
// `make digests`.
#include "compare/comparison.h"
#include "digests/cases.h"

#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace {

constexpr std::size_t nMostNamed = 20; // differences

class Digests : public testing::TestWithParam<digests::Group> {};

std::string KeptLines(const std::string& strGroup) {
    std::ifstream tFile(ORVEX_TEST_DATA "/digests.txt");
    std::string strKept, str;
    while (std::getline(tFile, str))
        if (str.starts_with(strGroup + "/"))
            strKept += str + "\n";
    return strKept;
}

} // namespace

TEST_P(Digests, AreTheKeptOnes) {
    std::istringstream tKept(KeptLines(GetParam().szName));
    std::stringstream tMeasured;
    GetParam().Write(tMeasured);
    const compare::Comparison t = compare::Compare(tKept, tMeasured, 0);
    EXPECT_GT(t.nBytes, 0u);
    for (std::size_t i = 0; i < std::min(nMostNamed, t.aDifferences.size()); ++i)
        ADD_FAILURE() << "kept against measured: " << t.aDifferences[i];
    EXPECT_EQ(t.aDifferences.size(), 0u)
        << "if the results are to change: make digests, and read the difference";
}

INSTANTIATE_TEST_SUITE_P(Kept, Digests, testing::ValuesIn(digests::atGroups),
                         [](const auto& tInfo) { return std::string(tInfo.param.szName); });

int main(int nArguments, char** pszArguments) {
    testing::InitGoogleTest(&nArguments, pszArguments);
    if (nArguments != 2 || std::strcmp(pszArguments[1], "--write") != 0)
        return RUN_ALL_TESTS();
    for (const digests::Group& t : digests::atGroups)
        t.Write(std::cout);
    return std::cout.flush() ? 0 : 1;
}

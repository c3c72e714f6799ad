#include "compare/comparison.h"

#include <gtest/gtest.h>

namespace {

compare::Comparison Compared(const std::string& strOne, const std::string& strOther) {
    std::istringstream tOne(strOne), tOther(strOther);
    return compare::Compare(tOne, tOther);
}

} // namespace

TEST(Comparison, OneBitIsADifferenceButForAnAnglesLastPlace) {
    const std::string strHead = "007 bytes status 00000000\n";
    const struct {
        std::string strOne, strOther;
        std::size_t nDifferences, nLastPlaces;
    } aCases[] = {
        {"007 bytes f 0010ff\n", "007 bytes f 0010ff\n", 0, 0},
        {"007 bytes f 0010ff\n", "007 bytes f 0011ff\n", 1, 0},
        {"007 bytes f \n", "007 bytes f 00\n", 1, 0},
        {"007 bytes f 3fefffffffffffff\n", "007 bytes f 3ff0000000000000\n", 1, 0},
        {"007 angle f 3fefffffffffffff\n", "007 angle f 3ff0000000000000\n", 0, 1},
        {"007 angle f 3ff0000000000001\n", "007 angle f 3fefffffffffffff\n", 1, 0},
        {"007 angle f 8000000000000001\n", "007 angle f 0000000000000001\n", 1, 0},
        {"007 angle f 7ff8000000000000\n", "007 angle f fff8000000000000\n", 1, 0},
        {"007 bytes f 00\n", "007 bytes g 00\n", 1, 0},
        {"007 bytes f 00\n", "008 bytes f 00\n", 1, 0},
        {"007 bytes f 00\n", "", 1, 0},
        {"", "007 bytes f 00\n", 1, 0},
    };
    for (const auto& t : aCases) {
        const compare::Comparison tResult = Compared(strHead + t.strOne, strHead + t.strOther);
        EXPECT_EQ(tResult.aDifferences.size(), t.nDifferences) << t.strOne << t.strOther;
        EXPECT_EQ(tResult.aLastPlaces.size(), t.nLastPlaces) << t.strOne << t.strOther;
    }
    EXPECT_EQ(Compared("", "").aDifferences.size(), 1u) << "nothing compared is nothing shown";
    const compare::Comparison t = Compared(strHead + "008 bytes f aa\n", strHead + "008 bytes f ab\n");
    EXPECT_EQ(t.nPairs, 2u);
    EXPECT_EQ(t.nBytes, 5u);
    EXPECT_EQ(t.aDifferences[0], "pair 008, f: aa against ab");
}

#include "compare/comparison.h"

#include <gtest/gtest.h>

namespace {

compare::Comparison Compared(const std::string& strOne, const std::string& strOther) {
    std::istringstream tOne(strOne), tOther(strOther);
    return compare::Compare(tOne, tOther, 1);
}

} // namespace

TEST(Comparison, OneBitIsADifferenceButForWhatTheAtanOfTheSamePairExcuses) {
    const std::string strHead = "007 count rendered\n";
    const std::string strAtan = "007 atan a 3fefffffffffffff\n", strNext = "007 atan a 3ff0000000000000\n";
    const std::string strTilt = "007 angle t 3ff0000000000000\n", strMoved = "007 angle t 3ff0000000000002\n";
    const std::tuple<std::string, std::string, std::size_t, std::size_t> aCases[] = {
        {"007 byte f 0010ff\n", "007 byte f 0010ff\n", 0, 0},
        {"007 byte f 0010ff\n", "007 byte f 0011ff\n", 1, 0},
        {"007 byte f \n", "007 byte f 00\n", 1, 0},
        {"007 byte f 3fefffffffffffff\n", "007 byte f 3ff0000000000000\n", 1, 0},
        {strAtan, strNext, 0, 1},
        {strAtan, "007 atan a 3ff0000000000001\n", 1, 0},
        {"007 atan a 8000000000000001\n", "007 atan a 0000000000000001\n", 1, 0},
        {"007 atan a 7ff8000000000000\n", "007 atan a fff8000000000000\n", 1, 0},
        {strTilt, strMoved, 1, 0},
        {strAtan + strTilt, strAtan + strMoved, 1, 0},
        {strAtan + strTilt, strNext + strMoved, 0, 2},
        {strAtan + strTilt, strNext + "007 angle t 3ff0000000000003\n", 1, 1},
        {strAtan + strTilt, strNext + "008 count drawn\n", 1, 1},
        {strAtan + "008 angle t 3ff0000000000000\n", strNext + "008 angle t 3ff0000000000001\n", 1, 1},
        {strAtan + "007 single s 3ff0000000000000\n", strNext + "007 single s 3ff0000020000000\n", 0, 2},
        {strAtan + "007 single s 3ff0000000000000\n", strNext + "007 single s 3ff0000020000001\n", 1, 1},
        {strAtan + "007 difference d 3e80000000000000\n", strNext + "007 difference d 3e80000000000001\n", 1,
         1},
        {strAtan + strTilt + "007 difference d 3f50000000000000\n",
         strNext + strMoved + "007 difference d 3f50000000000800\n", 0, 3},
        {strAtan + strTilt + "007 difference d 3f50000000000000\n",
         strNext + strMoved + "007 difference d 3f50000000001000\n", 1, 2},
        {"007 byte f 00\n", "007 byte g 00\n", 1, 0},
        {"007 byte f 00\n", "008 byte f 00\n", 1, 0},
        {"007 byte f 00\n", "", 1, 0},
        {"", "007 byte f 00\n", 1, 0},
    };
    for (const auto& [strOne, strOther, nDifferences, nLastPlaces] : aCases) {
        const compare::Comparison tResult = Compared(strHead + strOne, strHead + strOther);
        EXPECT_EQ(tResult.aDifferences.size(), nDifferences) << strOne << strOther;
        EXPECT_EQ(tResult.aLastPlaces.size(), nLastPlaces) << strOne << strOther;
    }
    const std::string strDrawn = "007 count drawn\n";
    EXPECT_EQ(Compared("", "").aDifferences.size(), 1u) << "nothing compared is nothing shown";
    EXPECT_EQ(Compared(strDrawn, strDrawn).aDifferences.size(), 1u) << "nor is too little";
    compare::Comparison t = Compared(strHead + "008 byte f aa\n", strHead + "008 byte f ab\n");
    EXPECT_EQ(t.aCounts["rendered"], 1u);
    EXPECT_EQ(t.nBytes, 1u);
    EXPECT_EQ(t.aDifferences[0], "008, f: aa against ab");
}

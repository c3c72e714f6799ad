#include "support/program.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace program {
namespace {

// What a document has people type, and what it shows them then.
struct Tutorial {
    std::string strCommands;
    std::vector<std::string> aShown;
};

Tutorial ReadTutorial(const char* szDocument) {
    std::ifstream tFile(szDocument);
    Tutorial t;
    bool bShown = false;
    for (std::string str; std::getline(tFile, str);)
        if (str == "```") {
            bShown = !bShown;
            if (bShown)
                t.aShown.emplace_back();
        } else if (bShown) {
            t.aShown.back() += str + "\n";
        } else if (str.starts_with("    ")) {
            t.strCommands += str.substr(4) + "\n";
        }
    return t;
}

// Of a batch of rendered pairs, as its summary tells it.
double LargestDeviation(const std::string& strSummary) {
    std::istringstream t(strSummary.substr(strSummary.find("minus the list's truth")));
    double dLargest = 0;
    std::string str;
    std::getline(t, str);
    for (std::getline(t, str); std::getline(t, str) && !str.empty();) {
        std::istringstream tRow(str.substr(4)); // behind the angle's name
        double dCount = 0, dMean = 0, dDeviation = 0, dLeast = NAN, dMost = NAN;
        tRow >> dCount >> dMean >> dDeviation >> dLeast >> dMost;
        dLargest = std::max({dLargest, std::fabs(dLeast), std::fabs(dMost)});
    }
    return dLargest;
}

} // namespace

using BringUp = Program;

TEST_F(BringUp, TutorialsCommandsMeasureThreeNewProducts) {
    const Tutorial tTutorial = ReadTutorial(ORVEX_DOCS "/bring-up.md");
    Write("commands.sh", tTutorial.strCommands);
    const Outcome t = RunInShell("mkdir -p build/release/bin && ln -s " ORVEX_ALIGN_PROGRAM
                                 " build/release/bin/orvex-align && bash -e commands.sh");
    EXPECT_EQ(t.nExit, 0) << t.strErr;
    ASSERT_EQ(tTutorial.aShown.size(), 4u);
    EXPECT_TRUE(Holds(t.strOut, tTutorial.aShown));
    const std::string& strBrought = tTutorial.aShown.back();
    EXPECT_EQ(strBrought.find(" -", strBrought.find("Least margins")), strBrought.npos) << strBrought;
    for (const std::string& str :
         {tTutorial.aShown.back(), Read("demo/new/half.txt"), Read("demo/new/beside.txt")}) {
        EXPECT_TRUE(Holds(str, {"within range, no doubt      10"}));
        EXPECT_LT(LargestDeviation(str), 0.02);
        EXPECT_GT(LargestDeviation(str), 0);
    }
}

} // namespace program

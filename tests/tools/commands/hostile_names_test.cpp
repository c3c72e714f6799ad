#include "support/program.h"

#include <regex>

namespace program {

using HostileNames = Program;

namespace {

void ExpectHarmless(const std::string& strText) {
    std::string str; // with escapes for all that is not ASCII
    ASSERT_NO_THROW(str = Json(strText).dump(-1, ' ', true)) << "no UTF-8: " << strText;
    const std::regex tHarm(
        R"([^\\]\\(u00[01].|u007f|u00[89].|u061c|u200[ef]|u202[89a-e]|u206[6-9]|[rtbf]|nFORGED))");
    EXPECT_FALSE(std::regex_search(str, tHarm)) << str;
}

} // namespace

TEST_F(HostileNames, CommandNoTerminalAndForgeNoLine) {
    // A C1 control, an override, an isolate and a mark of direction, a line separator, a letter that may
    // stay.
    const std::string
        strId = "x\nFORGED\u009B2J\u202E\u2066\u061C\u2028\u00FC",
        strShown = "x?FORGED?2J????\u00FC",
        // What no list takes: a title and bytes that are no UTF-8, one of them an overlong line break.
        strFolder = strId + "\x1B]0;t\x07\r\x7F\x9B\xC0\x8A\xE2\x80",
        strHead = "true_rx_deg,true_ry_deg,true_rz_deg,id,calibration,slave,master",
        strGood = strHead + "\n,,,\"" + strId + "\",calibration.bin,slave.pgm,master.pgm\n";
    Render("--rx=-2.0 --ry=1.7 --rz=-2.45 --master-rx=-1.1 --noise 2"); // measured with warnings
    Write("G", strGood);
    Write("L", strGood + ",,,1,c,s,\"" + strId + "\"\n\"" + strId + "\",,,2,c,s,m\n");
    Write("W", strHead + ",station\n,,,1,calibration.bin,slave.pgm,master.pgm,\"" + strId + "\"\n");
    Write("H", "\"" + strId + "\"\n");
    Write("S", strHead + "\n,,,3,c,s,gate.pgm\n");
    const std::string strMeasure = "measure N/master.pgm N/slave.pgm --calibration N/calibration.bin ";
    const std::pair<std::string, std::string> aCases[] = {
        {"render --out N/", "--truth $'x\\012FORGED"},
        {"render --out N/ --rx 1", strShown},
        {"render --out N/s --count 1", strShown},
        {"render --out N/ --size N/", strShown},
        {"measure --N/", strShown},
        {"measure N/no N/no --calibration N/no", strShown},
        {strMeasure + "--truth N/truth.json --record N/record --report N/report.html", strShown},
        {strMeasure + "--json", "x\\nFORGED\\u009b2J\\u202e"},
        {"record N/record --calibration N/calibration.bin", strShown},
        {"batch H", strShown},
        {"batch G --format jsonl", "x\\nFORGED\\u009b2J\\u202e"},
        {"batch L --out N/r", "warnings      " + strShown + "\n"},
        {"batch L --out N/r --overwrite", "1 x master: cannot be read"},
        {"batch W --out N/w --report N/week.html --reports N/pages --by station", ""},
        {"batch L --out N/new --resume", strShown},
        {"measure N/../gate.pgm a --calibration b & until [ -s err ]; do sleep 0.1; done; kill $!; wait $!",
         "from " + strShown},
        {"batch S --timeout 86400 --out N/S & exec 9>gate.pgm; kill $!; sleep 0.1; kill $!; wait $!",
         "which " + strShown},
    };
    for (const auto& [strArguments, strTold] : aCases) {
        const Outcome t = Run(std::regex_replace(strArguments, std::regex("N/"), "'" + strFolder + "'/"),
                              "[ -p gate.pgm ] || mkfifo gate.pgm");
        ExpectHarmless(t.strOut + "\n" + t.strErr);
        EXPECT_TRUE(Holds(t.strOut + t.strErr, {strTold})) << strArguments;
    }
    for (const char* const szPage : {"/report.html", "/week.html", "/pages/row-00001.html"})
        ExpectHarmless(Read(strFolder + szPage));
    EXPECT_TRUE(
        Holds(Read(strFolder + "/week.html"), {"href=\"./pages/row-00001.html\"", "station " + strShown}));
    EXPECT_TRUE(Holds(Read(strFolder + "/r"), {strId})) << "results hold the name itself";
    ExpectHarmless(
        std::regex_replace(ShownOnTerminal("batch G --accept-doubtful >&2", ":"), std::regex("\r\n"), "\n"));
}

} // namespace program

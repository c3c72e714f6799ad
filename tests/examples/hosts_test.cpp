#include "support/program.h"

namespace program {
namespace {

// What stands behind "name " at a line's start, "" if there is none.
std::string Told(const Outcome& t, const std::string& strName) {
    const std::string strText = "\n" + t.strOut, strKey = "\n" + strName + " ";
    const std::size_t nKey = strText.find(strKey), nStart = nKey + strKey.size();
    return nKey == strText.npos ? "" : strText.substr(nStart, strText.find('\n', nStart) - nStart);
}

const std::string strLibrary = " '" ORVEX_LIBRARY "' ";

const std::vector<std::string> aHosts = {
    ORVEX_HOST_IN_C,
#ifdef ORVEX_HOST_IN_JAVA
    ORVEX_HOST_IN_JAVA,
#endif
};

} // namespace

using Hosts = Program;

TEST_F(Hosts, TellWhatTheToolMeasures) {
    Render("--rx 1.3 --ry -0.5 --rz 0.3 --noise 2");
    Render("--ry -3.2 --rz 1", "tilted");
    Render("--rz 0.4 --size 2104x1560", "large");
    Write("blank.pgm", "P5\n1728 972\n255\n" + std::string(1728 * 972, '\xDC'));
    for (const char* const szPictures :
         {"master.pgm slave.pgm", "tilted/master.pgm tilted/slave.pgm", "large/master.pgm large/slave.pgm",
          "large/master.pgm slave.pgm", "master.pgm large/slave.pgm", "master.pgm blank.pgm"}) {
        const Json tTool = MeasureAsJson(szPictures);
        for (const std::string& strHost : aHosts) {
            SCOPED_TRACE(strHost + " " + szPictures);
            const Outcome t = RunInShell(strHost + strLibrary + szPictures + " calibration.bin");
            EXPECT_EQ(t.nExit, tTool["exit_code"]) << t.strErr;
            EXPECT_EQ(Told(t, "version"), tTool["library_version"]);
            EXPECT_EQ(Told(t, "status"), tTool["status"]["hex"]);
            for (const auto& [strAngle, tMeasured] : tTool["rescaled_deg"].items()) {
                const std::string str = Told(t, strAngle);
                EXPECT_EQ(str.empty() ? Json() : Json(std::stod(str)), tMeasured) << strAngle;
            }
        }
    }
}

TEST_F(Hosts, RefuseUnfitFilesByName) {
    Render();
    Write("cut.pgm", Read("slave.pgm").substr(0, 1728 * 972));
    Write("deep.pgm", "P5\n2 1\n65535\n1234");
    Write("short.bin", std::string(2914, 'x'));
    const std::pair<std::string, const char*> aCases[] = {
        {" ./none.so master.pgm slave.pgm calibration.bin",
         "none.so: cannot open shared object file: No such file"},
        {strLibrary + "missing.pgm slave.pgm calibration.bin", "missing.pgm"},
        {strLibrary + "master.pgm cut.pgm calibration.bin", "cut.pgm: is cut off"},
        {strLibrary + "deep.pgm slave.pgm calibration.bin",
         "deep.pgm: is no binary PGM picture (P5) with 255"},
        {strLibrary + "master.pgm slave.pgm short.bin", "short.bin: is too short"},
    };
    for (const std::string& strHost : aHosts)
        for (const auto& [strArguments, szTold] : aCases) {
            const Outcome t = RunInShell(strHost + strArguments);
            EXPECT_EQ(t.nExit, 3) << strHost << strArguments;
            EXPECT_TRUE(Holds(t.strErr, {szTold}));
        }
}

} // namespace program

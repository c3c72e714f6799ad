#include "tools/program.h"

namespace program {
namespace {

const std::vector<std::string> aPairFiles = {"calibration.bin", "master.pgm", "slave.pgm", "truth.json"};

} // namespace

using RenderCommand = Program;

TEST_F(RenderCommand, TruthTellsEveryOptionOfThePair) {
    Render("deep/folder",
           "--rx 0.1 --ry 0.2 --rz 0.4 --master-rx 1 --master-ry 2 --master-rz 3 --size 800x600 "
           "--blur 1.5 --noise 2.5 --vignetting 0.25 --gain 0.75 --seed 7");
    EXPECT_EQ(NamesIn("deep/folder"), aPairFiles);
    const Json tTruth = ReadJson("deep/folder/truth.json");
    EXPECT_EQ(tTruth["relative_deg"], Json({{"rx", 0.1}, {"ry", 0.2}, {"rz", 0.4}}));
    EXPECT_EQ(tTruth["master"]["pose_deg"], Json({{"rx", 1.}, {"ry", 2.}, {"rz", 3.}}));
    EXPECT_EQ(tTruth["slave"]["pose_deg"], Json({{"rx", 1.1}, {"ry", 2.2}, {"rz", 3.4}}));
    for (const char* const szCamera : {"master", "slave"}) {
        Json tCamera = tTruth[szCamera]["camera"];
        tCamera.erase("focal_length_px");
        tCamera.erase("principal_point_px");
        EXPECT_EQ(tCamera, Json({{"width_px", 800},
                                 {"height_px", 600},
                                 {"blur_sigma_px", 1.5},
                                 {"noise_sigma_grey", 2.5},
                                 {"vignetting_share", 0.25},
                                 {"gain_factor", 0.75},
                                 {"seed", 7}}));
    }
    EXPECT_TRUE(Read("deep/folder/slave.pgm").starts_with("P5\n800 600\n255\n"));
    EXPECT_EQ(Read("deep/folder/slave.pgm").size(), 15u + 800 * 600);
}

TEST_F(RenderCommand, SameSeedGivesTheSameFilesAndAnotherSeedOthers) {
    Render("one", "--noise 2 --seed 5");
    Render("two", "--noise 2 --seed 5");
    Render("other", "--noise 2 --seed 6");
    for (const std::string& str : aPairFiles) {
        EXPECT_EQ(Read("one/" + str), Read("two/" + str)) << str;
        EXPECT_NE(Read("one/" + str), Read("other/" + str)) << str;
    }
}

TEST_F(RenderCommand, PrintedCommandMeasuresThePair) {
    const Outcome t = Run("render --rx 1 --out \"it's a pair\"");
    const std::string strName = "orvex-align measure ";
    const std::size_t nCommand = t.strOut.find(strName);
    ASSERT_NE(nCommand, std::string::npos) << t.strOut;
    const std::string strArguments = t.strOut.substr(nCommand + strName.size());
    const Outcome tMeasured = Run("measure " + strArguments.substr(0, strArguments.find('\n')));
    EXPECT_EQ(tMeasured.nExit, 0) << tMeasured.strErr;
    EXPECT_NE(tMeasured.strOut.find("Against the truth"), std::string::npos);
}

TEST_F(RenderCommand, FailureLeavesTheFolderAsItWas) {
    std::filesystem::create_directories(Path("taken/slave.pgm"));
    Write("taken/master.pgm", std::string("precious"));
    Write("file", std::string("x"));
    const struct {
        const char* szArguments;
        const char* szTold;
    } aCases[] = {
        {"--out taken", "taken/slave.pgm: cannot be written (a folder of this name is in the way)"},
        {"--out file", "file: cannot be created as a folder"},
        {"--out file/below", "file/below: cannot be created as a folder"},
        {"--out /proc/none", "/proc/none: cannot be created as a folder"},
    };
    for (const auto& tCase : aCases) {
        const Outcome t = Run(std::string("render ") + tCase.szArguments);
        EXPECT_EQ(t.nExit, 3) << tCase.szArguments;
        EXPECT_EQ(t.strOut, "");
        EXPECT_NE(t.strErr.find(std::string("orvex-align: ") + tCase.szTold), std::string::npos) << t.strErr;
    }
    EXPECT_EQ(NamesIn("taken"), (std::vector<std::string>{"master.pgm", "slave.pgm"}));
    EXPECT_EQ(Read("taken/master.pgm"), "precious");
    EXPECT_EQ(Read("file"), "x");
}

TEST_F(RenderCommand, FullDiskLeavesTheOldPair) {
    Render("pair");
    const std::string strMaster = Read("pair/master.pgm");
    const Outcome t = Run("render --out pair --rx 1", "trap '' XFSZ; ulimit -f 100");
    EXPECT_EQ(t.nExit, 3);
    EXPECT_NE(t.strErr.find("pair/master.pgm: cannot be written"), std::string::npos) << t.strErr;
    EXPECT_EQ(NamesIn("pair"), aPairFiles);
    EXPECT_EQ(Read("pair/master.pgm"), strMaster);
}

} // namespace program

#include "support/program.h"

namespace program {
namespace {

// Renders into s and interrupts that at the third pair: it looks at what is there, and a pipe makes it wait.
std::string InterruptedAtThird(const std::string& strOptions) {
    return std::string("mkdir -p s/0003; rm -f s/0003/master.pgm; mkfifo s/0003/master.pgm; '") +
           ORVEX_ALIGN_PROGRAM + "' render --jobs 1 --out s --count 6 " + strOptions +
           " & exec 9>s/0003/master.pgm; kill -INT $!; rm s/0003/master.pgm; exec 9>&-; wait $!; echo code "
           "$?";
}

} // namespace

using RenderCommand = Program;

TEST_F(RenderCommand, BothFormatsHoldTheSamePixels) {
    Render("--noise 3", "pgm");
    const Outcome t = Run("render --out png --noise 3 --format png; cmp pgm/truth.json png/truth.json");
    EXPECT_EQ(t.nExit, 0) << t.strErr;
    const auto Measured = [this](const std::string& str) {
        return Json::parse(
            Run("measure " + str + "/master." + str + " " + str + "/slave." + str + " --json").strOut);
    };
    const Json tPgm = Measured("pgm"), tPng = Measured("png");
    EXPECT_EQ(tPng["raw_deg"], tPgm["raw_deg"]);
    EXPECT_EQ(tPng["trust"], tPgm["trust"]);
}

TEST_F(RenderCommand, TruthTellsEveryOptionOfThePair) {
    Render("--rx 0.1 --ry 0.2 --rz 0.4 --master-rx 1 --master-ry 2 --master-rz 3 --size 800x600 "
           "--blur 1.5 --noise 2.5 --vignetting 0.25 --gain 0.75 --seed 7");
    const Json tTruth = Json::parse(Read("truth.json"));
    EXPECT_EQ(tTruth["relative_deg"], Json({{"rx", 0.1}, {"ry", 0.2}, {"rz", 0.4}}));
    EXPECT_EQ(tTruth["master"]["pose_deg"], Json({{"rx", 1.}, {"ry", 2.}, {"rz", 3.}}));
    EXPECT_EQ(tTruth["slave"]["pose_deg"], Json({{"rx", 1.1}, {"ry", 2.2}, {"rz", 3.4}}));
    const Json tTold = {{"width_px", 800},
                        {"height_px", 600},
                        {"focal_length_px", 1900 * (800 / 1728.)}, // the same field of view
                        {"blur_sigma_px", 1.5},
                        {"noise_sigma_grey", 2.5},
                        {"vignetting_share", 0.25},
                        {"gain_factor", 0.75},
                        {"seed", 7}};
    for (const char* const szCamera : {"master", "slave"})
        for (const auto& [strKey, t] : tTold.items())
            EXPECT_EQ(tTruth[szCamera]["camera"].at(strKey), t) << szCamera << strKey;
}

TEST_F(RenderCommand, StudyDrawsTheSameNoiseAndBlurOnEveryMachine) {
    Render("--count 3 --size 300x200 --noise 1 --max-noise 4 --blur 0.5 --max-blur 2");
    const std::pair<double, double> aDrawn[] = {{3.3896, 1.1472}, {2.003, 1.2272}, {3.6465, 1.8707}};
    for (std::size_t i = 0; i < std::size(aDrawn); ++i)
        for (const char* const szCamera : {"master", "slave"}) {
            const Json t =
                Json::parse(Read("000" + std::to_string(i + 1) + "/truth.json"))[szCamera]["camera"];
            EXPECT_EQ(t["noise_sigma_grey"], aDrawn[i].first);
            EXPECT_EQ(t["blur_sigma_px"], aDrawn[i].second);
        }
}

TEST_F(RenderCommand, InterruptedStudyKeepsWholePairsAndEndsLikeAnUndisturbedOne) {
    Render("--count 6 --noise 2 --jobs 3", "whole");
    const Outcome tStopped = RunInShell(InterruptedAtThird("--noise 2"));
    EXPECT_EQ(tStopped.strOut, "code 130\n");
    EXPECT_TRUE(Holds(tStopped.strErr, {"after 3 of 6 pairs"}));
    EXPECT_FALSE(std::filesystem::exists(m_tFolder / "s/LIST.csv"));
    const auto tWritten = std::filesystem::last_write_time(m_tFolder / "s/0001/master.pgm");
    Write("s/0002/slave.pgm", "cut off");
    Render("--count 6 --noise 2 --overwrite", "s");
    EXPECT_EQ(std::filesystem::last_write_time(m_tFolder / "s/0001/master.pgm"), tWritten);
    EXPECT_EQ(RunInShell("diff -r whole s").nExit, 0);
    Render("--count 6 --noise 2 --seed 2", "other/seed");
    for (const std::string str : {"calibration.bin", "master.pgm", "slave.pgm", "truth.json"})
        EXPECT_NE(Read("whole/0001/" + str), Read("other/seed/0001/" + str)) << str;
}

TEST_F(RenderCommand, EarlierRenderingIsReplacedOnlyOnRequestAndItsListGoesFirst) {
    Render("--count 6", "s");
    Render("--count 6", "copy");
    Render("", "pair");
    Write("pair/master.pgm", "foreign");
    const Refusal aCases[] = {
        {"render --out s --count 6 --seed 2", {"s/LIST.csv: exists already", "--overwrite"}},
        {"render --out s/../s --count 6 --noise 1", {"s/0001/truth.json: exists already"}},
        {"render --out pair", {"pair/master.pgm: exists already", "--overwrite"}},
    };
    for (const Refusal& t : aCases)
        ExpectRefused(3, t);
    Render("--count 6", "s"); // the same bytes
    EXPECT_EQ(RunInShell("diff -r copy s").nExit, 0);
    EXPECT_EQ(Read("pair/master.pgm"), "foreign");
    EXPECT_EQ(RunInShell(InterruptedAtThird("--seed 2 --overwrite")).strOut, "code 130\n");
    EXPECT_FALSE(std::filesystem::exists(m_tFolder / "s/LIST.csv"));
    EXPECT_NE(Read("copy/0001/truth.json"), Read("s/0001/truth.json"));
}

TEST_F(RenderCommand, PrintedCommandsRunAsTheyStand) {
    const std::string strCalled = "\"./it's align\" render --out \"it's ", strShown = "  './it'\\''s align' ";
    std::filesystem::create_symlink(ORVEX_ALIGN_PROGRAM, m_tFolder / "it's align");
    const std::pair<std::string, std::string> aCases[] = {
        {"a pair\" --rx 0.8", "Against the truth"},
        {"a study\" --count 2 --repeats 2 --range 0.5 --format png", "Repeatability of the raw angles"}};
    for (const auto& [strOptions, strTold] : aCases) {
        const std::string strOut = RunInShell(strCalled + strOptions).strOut;
        const std::size_t nCommand = strOut.find(strShown);
        ASSERT_NE(nCommand, strOut.npos) << strOut;
        const Outcome t = RunInShell(strOut.substr(nCommand));
        EXPECT_EQ(t.nExit, 0) << t.strErr;
        EXPECT_TRUE(Holds(t.strOut, {strTold}));
    }
}

TEST_F(RenderCommand, FailureLeavesTheFolderAsItWas) {
    Render("", "pair");
    const std::string strMaster = Read("pair/master.pgm");
    std::filesystem::create_directories(m_tFolder / "taken/slave.pgm");
    ExpectRefused(3, {"render --out taken", {"taken/slave.pgm: cannot be written (a folder of this name"}});
    ExpectRefused(3, {"render --out much/room --count 100000 --repeats 1000",
                      {"much/room: has ", ", but 100000000 pairs take 33", " GB"}});
    EXPECT_FALSE(std::filesystem::exists(m_tFolder / "much"));
    ExpectRefused(3, {"render --out pair/truth.json", {"pair/truth.json: cannot be created as a folder"}});
    const char szFullDisk[] = "trap '' XFSZ; ulimit -f 100";
    ExpectRefused(3, {"render --out pair --rx 1 --overwrite", {"pair/master.pgm: cannot be written"}},
                  szFullDisk);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_tFolder / "taken"), {}), 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_tFolder / "pair"), {}), 4);
    EXPECT_EQ(Read("pair/master.pgm"), strMaster);
}

} // namespace program

#include "support/program.h"

#include <nlohmann/json.hpp>

namespace program {

using BadInput = Program;

TEST_F(BadInput, UnfitPictureIsToldByNameValueAndLimit) {
    Render();
    const std::string strGood = Read("master.pgm");
    const std::pair<std::string, std::vector<std::string>> aPictures[] = {
        {strGood.substr(0, strGood.size() - 5),
         {"orvex-align: bad.pgm: is cut off", "1728 x 972", "1679616", "1679611"}},
        {strGood + "xyz", {"1728 x 972", "3 bytes"}},
        {"P5 2 2 65535\n12345678", {"16 bits", "65535", "255"}},
        {"P5 2 2 100\n1234", {"largest grey value is 100", "Scale"}},
        {"P2\n1 1\n255\n0\n", {"P2", "P5"}},
        {"", {"is empty", "P5"}},
        {"P5\n# 1728 972", {"ends before its width"}},
        {"P5 -1728 972 255\n", {"width \"-1728\"", "not a number"}},
        {std::string("P5 4\x1B\0\xFF 972 255\n", 16), {"width \"4???\" is not a number", "Record"}},
        {"P5 1728 0 255\n", {"height \"0\"", "1 to 65535"}},
        {"P5 18446744073709551617 1 255\n1", {"width \"18446744073709551617\"", "65535"}},
        {"P5 65535 65535 255\n1", {"65535 x 65535", "2147483647"}},
        {"P5 640 480 255\n" + std::string(640 * 480, 'x'), {"640 x 480 px, but the master must be at least"}},
    };
    for (const auto& [strBytes, aTold] : aPictures) {
        Write("bad.pgm", strBytes);
        ExpectRefused(3, {"measure bad.pgm slave.pgm --calibration calibration.bin", aTold});
    }
    const Outcome t = Run("measure bad.pgm slave.pgm --calibration calibration.bin --json");
    const auto tAnswer = nlohmann::json::parse(t.strOut);
    EXPECT_EQ(tAnswer["verdict"], "unfit_input");
    EXPECT_EQ(tAnswer["exit_code"], t.nExit);
    EXPECT_EQ(tAnswer["file"], "bad.pgm");
    EXPECT_EQ("orvex-align: bad.pgm: " + tAnswer["reason"].get<std::string>() + ".\n  " +
                  tAnswer["advice"].get<std::string>() + ".\n",
              t.strErr);
}

TEST_F(BadInput, PipeThatSaysNothingIsNamed) {
    Render();
    const Outcome t = Run("measure pipe slave.pgm --calibration calibration.bin",
                          "mkfifo pipe; (until [ -s err ]; do sleep 0.1; done; cat master.pgm >pipe) & :");
    EXPECT_EQ(t.nExit, 0);
    EXPECT_EQ(t.strErr, "orvex-align: waiting for data from pipe\n");
}

TEST_F(BadInput, UnusableFileIsToldByName) {
    Render();
    Write("short.bin", std::string(2914, 'x'));
    Write("empty.bin", "");
    Write("broken.json", "{\"master\": ");
    Write("other.json", "{\"relative_deg\": {\"rx\": \"1\"}}");
    Write("huge.json", "{\"relative_deg\": {\"rx\": 1e400}}");
    std::filesystem::create_symlink("nofile", m_tFolder / "dangling");
    const std::string strPair = "measure master.pgm slave.pgm --calibration ",
                      strAll = strPair + "calibration.bin";
    const Refusal aCases[] = {
        {"measure master.pgm missing.pgm --calibration calibration.bin", {"missing.pgm: cannot be read"}},
        {"measure master.pgm " + std::string(300, 'x') + " --calibration x",
         {"File name too long", "shorter name"}},
        {"measure master.pgm /dev/zero --calibration calibration.bin", {"/dev/zero: is no picture"}},
        {"measure .. slave.pgm --calibration calibration.bin", {"..: cannot be read (Is a directory)"}},
        {strPair + "short.bin", {"short.bin: is too short", "2914", "2915"}},
        {"record slave.pgm --calibration short.bin", {"short.bin: is too short", "2914", "2915"}},
        {"record empty.bin --calibration calibration.bin", {"empty.bin: is empty"}},
        {"record /dev/zero --calibration calibration.bin", {"/dev/zero: holds more than 65536 bytes"}},
        {strPair + "/dev/zero", {"/dev/zero: holds more than 1048576 bytes"}},
        {strAll + " --truth broken.json", {"broken.json: is not JSON"}},
        {strAll + " --truth huge.json", {"huge.json: holds a number that is too large"}},
        {strAll + " --truth other.json", {"other.json: holds no number \"relative_deg/rx\""}},
        {strAll + " --report missing/report.html", {"missing/report.html: cannot be written"}},
        {strAll + " --report ./slave.pgm", {"./slave.pgm: is an input of this measurement"}},
        {strAll + " --record calibration.bin", {"calibration.bin: is an input of this measurement"}},
        {strAll + " --record x --report ./x", {"./x: is named for the record and for the report"}},
        {strAll + " --record no/r", {"no/r: cannot be wri"}},
        {strAll + " --record new --report missing/report.html", {"missing/report.html: cannot be written"}},
        {strAll + " --record new --report dangling", {"dangling: cannot be written (a link", "remove the"}},
        {strAll + " --record " + std::string(300, 'x'), {"File name too long", "shorter name"}},
        {strAll + " >/dev/full", {"standard output: the result could not be written"}},
    };
    for (const Refusal& t : aCases)
        ExpectRefused(3, t);
    EXPECT_TRUE(std::filesystem::is_symlink(m_tFolder / "dangling"));
    EXPECT_FALSE(std::filesystem::exists(m_tFolder / "new"));
}

TEST_F(BadInput, WrongUsageNamesTheWordAndTheHelp) {
    Write("-out", "");
    const Refusal aCases[] = {
        {"", {"name a command", " --help.\n"}},
        {"measure a b --calibration c --jsn", {"\"--jsn\" is not understood; did you mean --json?\n  See"}},
        {"measure -dash.pgm b --calibration c", {"understood.\n  If it is a file, write ./-dash.pgm.\n"}},
        {"measure a -out --calibration c", {"write ./-out."}}, // such a file is there
        {"measure a '' --calibration c", {"SLAVE: the name is empty"}},
        {"measure a b --calibration c --record ''", {"--record: the name is empty"}},
        {"measre a b", {"did you mean measure?", " --help.\n"}},
        {"measure a b --record r", {"--record requires --calibration", " measure --help.\n"}},
        {"measure a b --max-difference -1", {"is not a number from 0 to 90"}},
        {"render --out x --rx 45.1", {"\"45.1\" is not a number from -45 to 45"}},
        {"render --out x --rz nan", {"\"nan\" is not a number"}},
        {"render --out x --ry 30 --master-ry 30", {"60.0000 deg, is beyond 45 deg"}},
        {"render --out x --size 10x10x10", {"\"10x10x10\" is not a width x height"}},
        {"render --out x --size 65535x65535", {"at most 100000000 px"}},
        {"render --out x --rx 40 --count 2 --range 6", {"40.0000 deg +- 6.0000 deg, is beyond 45 deg"}},
        {"render --out x --range 1", {"--range requires --count"}},
        {"render --out x --count 2 --noise 3 --max-noise 2",
         {"--max-noise: 2.0000 is below --noise, 3.0000"}},
        {"batch x --jobs 0", {"\"0\" is not a number from 1 to 1024"}},
        {"batch x --resume", {"needs --out"}},
        {"batch", {"LIST.csv: is required, or --pairs"}},
        {"batch ''", {"LIST.csv: the name is empty"}},
        {"batch x --out ''", {"--out: the name is empty"}},
        {"batch x --format xml", {"--format: \"xml\" is not csv or jsonl"}},
        {"batch x --raw 10", {"\"10\" is not a width x height"}},
        {"render --out x --seed -1", {"\"-1\" is not a whole number"}},
    };
    for (const Refusal& t : aCases)
        ExpectRefused(64, t);
    EXPECT_FALSE(std::filesystem::exists(m_tFolder / "x"));
}

TEST_F(BadInput, HelpAnswersOnStandardOutput) {
    const char* const aszCommands[] = {"", "measure ", "record ", "batch ", "render "};
    for (const std::string strCommand : aszCommands) {
        const Outcome t = Run(strCommand + "--help");
        EXPECT_EQ(t.nExit, 0) << strCommand;
        EXPECT_TRUE(Holds(t.strOut, {"NAME\n    orvex-align ", "\nEXAMPLES\n    ", "\nEXIT CODES\n      0  ",
                                     "\n     64  wrong usage\n    1", "\n    130  "}));
    }
    EXPECT_TRUE(Run("--version").strOut.starts_with("orvex-align "));
}

TEST_F(BadInput, CommandsOfHelpAndAdviceRunAsTheyStand) {
    const auto Between = [](const std::string& str, const std::string& strHead, const std::string& strEnd) {
        const std::size_t nFirst = str.find(strHead) + strHead.size();
        return str.substr(nFirst, str.find(strEnd, nFirst) - nFirst);
    };
    const Outcome tExamples = RunInShell(Between(Run("--help").strOut, "EXAMPLES\n", "\n\n"));
    EXPECT_EQ(tExamples.nExit, 0) << tExamples.strErr;
    EXPECT_TRUE(Holds(tExamples.strOut, {"WITHIN RANGE"}));
    const Outcome tAdvised = RunInShell(Between(Run("measure").strErr, "  See ", ".\n"));
    EXPECT_TRUE(Holds(tAdvised.strOut, {"NAME\n    orvex-align measure - "})) << tAdvised.strErr;
}

} // namespace program

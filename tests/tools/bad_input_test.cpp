#include "tools/program.h"

namespace program {
namespace {

struct BadFile {
    const char* szFile;
    std::string strBytes;
    std::vector<const char*> aszTold; // beside the file's name
};

void ExpectTold(const Outcome& t, const std::string& strPart) {
    EXPECT_NE(t.strErr.find(strPart), std::string::npos) << strPart << " in " << t.strErr;
}

} // namespace

using BadInput = Program;

TEST_F(BadInput, UnfitPictureIsToldByNameValueAndLimit) {
    Render("pair");
    const std::string strGood = Read("pair/master.pgm");
    const BadFile aFiles[] = {
        {"cut.pgm", strGood.substr(0, strGood.size() - 5), {"cut off", "1728 x 972", "1679616", "1679611"}},
        {"long.pgm", strGood + "xyz", {"1728 x 972", "3 bytes"}},
        {"deep.pgm", "P5 2 2 65535\n12345678", {"16 bits", "65535", "255"}},
        {"dim.pgm", "P5 2 2 100\n1234", {"100", "255"}},
        {"black.pgm", "P5 2 2 0\n1234", {"\"0\"", "1 to 65535"}},
        {"text.pgm", "P2\n1 1\n255\n0\n", {"P2", "P5"}},
        {"colour.pgm", "P6 1 1 255\n123", {"P6", "P5"}},
        {"photo.pgm", "\xFF\xD8\xFF\xE0", {"JPEG", "P5"}},
        {"note.pgm", "P5x", {"no picture", "P5"}},
        {"empty.pgm", "", {"is empty", "P5"}},
        {"header.pgm", "P5\n# 1728 972", {"ends before its width"}},
        {"words.pgm", "P5 1728 9x2 255\n", {"height \"9x2\"", "not a number"}},
        {"minus.pgm", "P5 -1728 972 255\n", {"\"-1728\"", "not a number"}},
        {"none.pgm", "P5 1728 0 255\n", {"height \"0\"", "1 to 65535"}},
        {"wide.pgm", "P5 65536 1 255\n", {"width \"65536\"", "1 to 65535"}},
        {"huge.pgm", "P5 18446744073709551617 1 255\n1", {"width \"18446744073709551617\"", "65535"}},
        {"area.pgm", "P5 65535 65535 255\n1", {"65535 x 65535", "2147483647"}},
    };
    for (const BadFile& tFile : aFiles) {
        Write(tFile.szFile, tFile.strBytes);
        for (const std::string& strOrder : {std::string(tFile.szFile) + " pair/slave.pgm",
                                            std::string("pair/master.pgm ") + tFile.szFile}) {
            const Outcome t = Measure(strOrder, "--json");
            EXPECT_EQ(t.nExit, 3) << tFile.szFile;
            EXPECT_EQ(t.strOut, "");
            ExpectTold(t, std::string("orvex-align: ") + tFile.szFile + ": ");
            for (const char* const szPart : tFile.aszTold)
                ExpectTold(t, szPart);
        }
    }
}

TEST_F(BadInput, UnusableFileIsToldByName) {
    Render("pair");
    Write("short.bin", std::string(2914, 'x'));
    Write("broken.json", "{\"master\": ");
    Write("other.json", "{\"relative_deg\": {\"rx\": \"1\"}}");
    const struct {
        std::string strArguments;
        const char* szTold;
    } aCases[] = {
        {"missing.pgm pair/slave.pgm --calibration pair/calibration.bin",
         "missing.pgm: cannot be read (No such"},
        {"pair pair/slave.pgm --calibration pair/calibration.bin", "pair: cannot be read (Is a directory)"},
        {"pair/master.pgm pair/slave.pgm --calibration missing.bin", "missing.bin: cannot be read"},
        {"pair/master.pgm pair/slave.pgm --calibration short.bin", "short.bin: is too short"},
        {"pair/master.pgm pair/slave.pgm --calibration /dev/zero",
         "/dev/zero: holds more than 1048576 bytes"},
        {"pair/master.pgm pair/slave.pgm --calibration pair/calibration.bin --truth broken.json",
         "broken.json: is not JSON"},
        {"pair/master.pgm pair/slave.pgm --calibration pair/calibration.bin --truth other.json",
         "other.json: holds no number \"relative_deg/rx\""},
        {"pair/master.pgm pair/slave.pgm --calibration pair/calibration.bin >/dev/full",
         "standard output: the result could not be written"},
    };
    for (const auto& tCase : aCases) {
        const Outcome t = Run("measure " + tCase.strArguments);
        EXPECT_EQ(t.nExit, 3) << tCase.strArguments;
        EXPECT_EQ(t.strOut, "");
        ExpectTold(t, std::string("orvex-align: ") + tCase.szTold);
    }
}

TEST_F(BadInput, WrongUsageNamesTheWordAndTheHelp) {
    const struct {
        const char* szArguments;
        const char* szTold;
    } aCases[] = {
        {"", "name a command"},
        {"mesure a b", "\"mesure\" is not understood"},
        {"measure a b --calibration c --jsn", "\"--jsn\" is not understood"},
        {"measure a b c --calibration d", "\"c\" is not understood"},
        {"measure a --calibration c", "SLAVE is required"},
        {"measure a b", "--calibration is required"},
        {"render", "--out is required"},
        {"render --out x --rx 45.1", "\"45.1\" is not a number from -45 to 45"},
        {"render --out x --rz nan", "\"nan\" is not a number"},
        {"render --out x --ry 30 --master-ry 30", "60.0000 deg, is beyond 45 deg"},
        {"render --out x --vignetting 2", "\"2\" is not a number from 0 to 1"},
        {"render --out x --gain=-1", "\"-1\" is not a number"},
        {"render --out x --noise 1e999", "\"1e999\" is not a number"},
        {"render --out x --size 1728", "\"1728\" is not a width x height"},
        {"render --out x --size 65535x65535", "at most 100000000 px"},
        {"render --out x --size 10x10x10", "\"10x10x10\" is not"},
        {"render --out x --seed -1", "\"-1\" is not a whole number"},
        {"render --out x --seed ''", "\"\" is not a whole number"},
    };
    for (const auto& tCase : aCases) {
        const Outcome t = Run(tCase.szArguments);
        EXPECT_EQ(t.nExit, 64) << tCase.szArguments;
        EXPECT_EQ(t.strOut, "");
        ExpectTold(t, tCase.szTold);
        ExpectTold(t, "--help");
    }
    EXPECT_FALSE(std::filesystem::exists(Path("x")));
}

TEST_F(BadInput, HelpAnswersOnStandardOutput) {
    for (const char* const szArguments : {"--help", "measure --help", "render --help", "--version"}) {
        const Outcome t = Run(szArguments);
        EXPECT_EQ(t.nExit, 0) << szArguments;
        EXPECT_EQ(t.strErr, "");
        EXPECT_NE(t.strOut.find("orvex-align"), std::string::npos);
    }
    for (const char* const szPart : {"MASTER SLAVE", "--calibration FILE", "Example:", "\n  64  wrong usage"})
        EXPECT_NE(Run("measure --help").strOut.find(szPart), std::string::npos) << szPart;
}

} // namespace program

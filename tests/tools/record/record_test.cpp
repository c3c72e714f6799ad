#include "support/failing_charts.h"
#include "support/program.h"

namespace program {

using RecordCommand = Program;

TEST_F(RecordCommand, ReadsBackWhatMeasureWroteAndTellsWhichCheckRefuses) {
    Render("--rx 0.8 --seed 1", "other");
    Render("--rx 0.8 --seed 2");
    const Json tMeasured = MeasureAsJson("master.pgm slave.pgm", "--record record.bin");
    EXPECT_EQ(tMeasured["record_file"], "record.bin");
    const std::string strRecord = Read("record.bin");
    ASSERT_EQ(strRecord.size(), 194u);
    const support::Plane tPaper = support::Paper();
    Write("blank.pgm", "P5 1728 972 255\n" + std::string(tPaper.aPixels.begin(), tPaper.aPixels.end()));
    EXPECT_EQ(Measure("blank.pgm slave.pgm", "--record failed.bin").nExit, 2);
    Write("zero.bin", std::string(4096, '\0'));
    Run("measure blank.pgm slave.pgm --calibration zero.bin --record zero_failed.bin");
    Write("short.bin", strRecord.substr(0, 178));
    // Byte 20 is the vector's: the same bit of the first plain block. The others no check covers.
    for (const std::size_t nPlace : {0u, 8u, 10u, 20u, 165u}) {
        std::string strFlipped = strRecord;
        strFlipped[nPlace] ^= nPlace == 10 ? 1 : 8;
        Write("flipped" + std::to_string(nPlace), strFlipped);
    }
    const struct {
        std::string strArguments;
        int nExit;
        const char* szHex;                       // its start: noise may pass as decrypted
        const char* szWords;                     // a part
        std::vector<std::string> aWarnings = {}; // parts of each
    } aCases[] = {
        {"record.bin --calibration calibration.bin", 0, "0x0", "those of this calibration"},
        {"record.bin --calibration other/calibration.bin", 2, "0x301000", "another module"},
        {"short.bin --calibration calibration.bin", 2, "0x3010001", "178 bytes, a whole one 194"},
        {"slave.pgm --calibration calibration.bin", 3, "", ""},
        {"other/truth.json --calibration calibration.bin", 2, "0x3010001", "does not begin as"},
        {"flipped20 --calibration calibration.bin", 2, "0x3010002", "is damaged"},
        {"flipped0 --calibration calibration.bin", 0, "0x0", "another version", {"is 9.0; "}},
        {"flipped8 --calibration calibration.bin", 0, "0x0", "damaged", {"0: 8."}},
        {"flipped10 --calibration calibration.bin", 0, "0x0", "damaged", {"0: 10.", "11 bytes"}},
        {"flipped165 --calibration calibration.bin", 0, "0x0", "damaged", {"128 reserved"}},
        {"failed.bin --calibration calibration.bin", 2, "0x3010003", "all zeros"},
        {"zero_failed.bin --calibration zero.bin", 2, "0x0", "as in a blank one"},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.strArguments);
        const Outcome tText = Run("record " + t.strArguments);
        EXPECT_EQ(tText.nExit, t.nExit);
        if (t.nExit == 3)
            continue;
        const Json tJson = Json::parse(Run("record --json " + t.strArguments).strOut);
        EXPECT_EQ(tJson["exit_code"], t.nExit);
        EXPECT_TRUE(tJson["status"]["hex"].get<std::string>().starts_with(t.szHex)) << tJson;
        EXPECT_TRUE(Holds(tJson["status"]["words"], {t.szWords}));
        ASSERT_EQ(tJson["warnings"].size(), t.aWarnings.size()) << tJson;
        EXPECT_EQ(tText.strOut.find("\nWarnings\n") == std::string::npos, t.aWarnings.empty());
        for (std::size_t i = 0; i < t.aWarnings.size(); ++i)
            EXPECT_TRUE(Holds(tJson["warnings"][i], {t.aWarnings[i]}));
        EXPECT_EQ(tJson["record"].is_null(), tJson["status"]["hex"] == "0x3010001");
        EXPECT_EQ(tText.strOut.find("\nThe record\n") == std::string::npos, t.nExit != 0);
        EXPECT_EQ(tText.strOut.find("focus line") == std::string::npos, tJson["record"].is_null());
        for (const char* const szAxis : {"x", "y"})
            if (t.nExit == 0) {
                const Json tSlave = tMeasured["slave"]["cross_centre_px"],
                           tMaster = tMeasured["master"]["cross_centre_px"];
                const double dShift = tSlave[szAxis].get<double>() - tMaster[szAxis].get<double>();
                EXPECT_EQ(tJson["record"]["shift_" + std::string(szAxis) + "_px"], std::trunc(dShift));
            }
    }
}

} // namespace program

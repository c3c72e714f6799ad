#include "support/failing_charts.h"
#include "support/program.h"

using namespace support;

namespace program {
namespace {

const std::string strPair = "master.pgm slave.pgm";

// "/corners_px/left_top/x" and the like, of all numbers.
std::vector<std::string> NumbersIn(const Json& tJson) {
    std::vector<std::string> a;
    const Json tFlat = tJson.flatten();
    for (const auto& [strPath, t] : tFlat.items())
        if (t.is_number())
            a.push_back(strPath);
    return a;
}

std::string PgmOf(const Plane& t) {
    return "P5\n" + std::to_string(t.nColumns) + " " + std::to_string(t.nRows) + "\n255\n" +
           std::string(t.aPixels.begin(), t.aPixels.end());
}

} // namespace

using MeasureCommand = Program;

TEST_F(MeasureCommand, RenderedPairComesOutAtItsTruthInTextAndJson) {
    const char* const aszPoses[] = {
        "--rx 0.8 --ry -0.5 --rz 0.3 --noise 2",
        "--rx -1.2 --ry 1.1 --rz -0.9 --master-rx 0.4 --master-ry -0.3 --master-rz 0.6 --gain 0.8",
        "--rz 0.01 --size 2104x1560 --vignetting 0.3 --blur 0.8",
        "--rx 2.3 --ry -2.2 --rz 2.1",
    };
    for (const char* const szPose : aszPoses) {
        SCOPED_TRACE(szPose);
        Render(std::string("--overwrite ") + szPose);
        const Json tJson = MeasureAsJson(strPair, "--truth truth.json"), tTruth = tJson["truth"];
        EXPECT_EQ(NumbersIn(tTruth).size(), 3u * (3 + 2 * 10)) << "angles; per camera centre and corners";
        for (const std::string& strPath : NumbersIn(tTruth))
            if (strPath.ends_with("/difference")) {
                const Json t = tTruth[Json::json_pointer(strPath).parent_pointer()];
                const double dTrue = t["true"], dMeasured = t["measured"];
                EXPECT_NEAR(dMeasured, dTrue, strPath.starts_with("/relative_deg") ? 0.05 : 0.3) << strPath;
                EXPECT_EQ(t["difference"], dMeasured - dTrue) << strPath;
            }
        const Outcome tText = Measure(strPair);
        EXPECT_EQ(tText.nExit, 0);
        EXPECT_TRUE(tText.strOut.starts_with(tJson["headline"].get<std::string>() + "\n")) << tText.strOut;
        for (const char* const szKind : {"raw_deg", "rescaled_deg"})
            for (const Json& tAngle : tJson[szKind]) {
                char szAngle[32];
                std::snprintf(szAngle, sizeof szAngle, " %.4f ", tAngle.get<double>());
                EXPECT_TRUE(Holds(tText.strOut, {szAngle}));
            }
    }
}

TEST_F(MeasureCommand, AngleOutOfRangeIsNamedWithItsLimit) {
    Render("--ry -3.2 --rz 1");
    const Json tJson = MeasureAsJson(strPair);
    EXPECT_EQ(tJson["exit_code"], 1);
    EXPECT_NEAR(tJson["raw_deg"]["ry"], -3.2, 0.05);
    EXPECT_NEAR(tJson["rescaled_deg"]["ry"], (-3.2 + 0.2) * 1.8 / 2.3 - 0.2, 0.05);
    const std::string strHeadline = tJson["headline"];
    EXPECT_TRUE(strHeadline.starts_with("OUT OF RANGE: Ry -2.5")) << strHeadline;
    EXPECT_EQ(strHeadline.find("Rz"), std::string::npos);
}

TEST_F(MeasureCommand, FailureTellsCameraStageAndWhatWasMissing) {
    const struct {
        const char* szHex;
        const char* szPlace; // after the camera's name
        const char* szStage;
        const char* szFound; // a part of it
        Plane tPicture;
        std::size_t nNumbers; // of this camera, the picture's size included
    } aCases[] = {
        {"0x1010006", "", "centre cross", "blank picture", Paper(), 2},
        {"0x1010012", "", "centre cross", "above or below", CentreAboveRows(), 3},
        {"0x101001D", "", "frame location", "lower", UprightChart().Fill(1300, 700, 1727, 971, ubPaper), 6},
        {"0x101001F", ", left top corner", "corner points", "interrupted", WithoutLeftTop(), 6},
        {"0x1010022", ", right down corner", "corner points", "not found", WithoutRightDown(), 12},
    };
    Render();
    Write("good.pgm", PgmOf(UprightChart()));
    for (const auto& t : aCases)
        for (const bool bMaster : {true, false}) {
            Write("bad.pgm", PgmOf(t.tPicture));
            const std::string strPictures = bMaster ? "bad.pgm good.pgm" : "good.pgm bad.pgm",
                              strCamera = bMaster ? "master" : "slave",
                              strWhere = strCamera + " camera" + t.szPlace;
            SCOPED_TRACE(strWhere + " " + t.szHex);
            const Json tJson = MeasureAsJson(strPictures);
            EXPECT_EQ(tJson["status"]["hex"], t.szHex);
            EXPECT_EQ(tJson["status"]["where"], strWhere);
            EXPECT_EQ(NumbersIn(tJson["raw_deg"]).size(), 0u);
            EXPECT_EQ(NumbersIn(tJson[strCamera]).size(), t.nNumbers);
            EXPECT_EQ(NumbersIn(tJson[bMaster ? "slave" : "master"]).size(), bMaster ? 2u : 18u)
                << "the slave comes second, the master's own tilts last";
            EXPECT_FALSE(tJson["trust"][strCamera]["cross_dark_grey"].is_null());
            EXPECT_EQ(tJson["trust"][strCamera]["border_distance_px"].is_null(), t.nNumbers < 5);
            const Outcome tText = Measure(strPictures, "--verbose");
            EXPECT_EQ(tText.nExit, 2);
            const std::string strBrief = Measure(strPictures).strOut;
            EXPECT_EQ(bool(Holds(strBrief, {"  Try "})), t.nNumbers != 2)
                << "of a blank picture the cause tells";
            EXPECT_LE(std::ranges::count(strBrief, '\n'), 20) << strBrief;
            EXPECT_TRUE(Holds(strBrief, {"  Looked for ", "--verbose"}));
            EXPECT_TRUE(tText.strOut.starts_with("NOT MEASURED: " + strWhere + ", " + t.szStage + ": "));
            EXPECT_TRUE(Holds(tText.strOut, {t.szFound, "  Looked for ", "\n  Calculation of "}));
        }
}

// The one cause is told alone, and asked for in place of what usually helps.
TEST_F(MeasureCommand, WhatSpoilsAWholePictureIsToldAsTheCause) {
    Render();
    const std::string strPixels = Read("slave.pgm").substr(16);
    std::string strInverted = strPixels, strOnSide, strSmall(strPixels.size(), '\xC8');
    for (char& c : strInverted)
        c = static_cast<char>(255 - static_cast<unsigned char>(c));
    for (std::size_t x = 0; x < 1728; ++x)
        for (std::size_t y = 0; y < 972; ++y) {
            strOnSide += strPixels[(971 - y) * 1728 + x];
            strSmall[(243 + y / 2) * 1728 + 432 + x / 2] = strPixels[y * 1728 + x];
        }
    const std::string strHeader = "P5\n1728 972\n255\n";
    Write("blank.pgm", PgmOf(Paper()));
    Write("inverted.pgm", strHeader + strInverted);
    Write("on_side.pgm", "P5\n972 1728\n255\n" + strOnSide);
    Write("small.pgm", strHeader + strSmall);
    const std::string strColours(strPixels.size() / 2, '\x80');
    Write("frame.nv21", strPixels + strColours);
    Write("other.nv21", strPixels.substr(2 * 1728) + std::string(2 * 1728, '\xC8') + strColours);
    Render("--rz 8", "rolled");
    Render("--noise 14", "noisy");
    const struct {
        std::string strPictures;
        const char* szKind;
        std::string strTold;
    } aCases[] = {
        {"master.pgm blank.pgm", "no_second_reading", "the picture is blank"},
        {"master.pgm inverted.pgm", "no_second_reading", "inverted"},
        {"master.pgm on_side.pgm", "no_second_reading", "stands on its side"},
        {"master.pgm small.pgm", "narrow_frame", "must be wider than 900 px"},
        {"master.pgm rolled/slave.pgm", "rolled_chart", "by 82 px, more than 38 px"},
        {"noisy/master.pgm noisy/slave.pgm", "much_noise", "noise of 14"},
        {"--raw 1800x972 frame.nv21 other.nv21", "raw_size", "its length fits 1728 x 972 px"},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.strPictures);
        const Json tJson = MeasureAsJson(t.strPictures);
        EXPECT_EQ(tJson["verdict"], "not_measured");
        EXPECT_EQ(tJson["warning_details"][0]["kind"], t.szKind);
        EXPECT_TRUE(Holds(tJson["warnings"][0].get<std::string>(), {t.strTold}));
        for (const Json& tWarning : tJson["warning_details"])
            EXPECT_TRUE(tWarning["kind"] != "low_contrast" && tWarning["kind"] != "large_residual");
        EXPECT_FALSE(Holds(Measure(t.strPictures).strOut, {"  Try "})) << "what usually helps does not here";
    }
    Measure("--raw 1728x972 frame.nv21 other.nv21", "--report raw.html");
    EXPECT_TRUE(Holds(Read("raw.html"), {RunInShell("sha256sum frame.nv21").strOut.substr(0, 64)}))
        << "of the whole file, though only its plane is measured";
}

TEST_F(MeasureCommand, DoubtIsAVerdictOfItsOwn) {
    Render("--rx 0.8 --noise 2");
    const std::string strSlave = Read("slave.pgm");
    std::string strDirty = strSlave;
    for (std::size_t y = 185; y < 215; ++y) // inside the frame, beside its top line
        strDirty.replace(17 + y * 1728 + 850, 40, 40, '\x14');
    Write("dirty.pgm", strDirty);
    const struct {
        std::string strPictures, strOptions;
        const char* szVerdict;
        int nExit;
        std::vector<std::string> aKinds; // some of them
    } aCases[] = {
        {strPair, "", "within_range", 0, {}},
        {"master.pgm master.pgm", "", "doubtful", 4, {"same_picture"}},
        {"master.pgm master.pgm", "--accept-doubtful", "doubtful", 0, {"same_picture"}},
        {strPair, "--max-difference 0", "doubtful", 4, {"readings_differ"}},
        {"master.pgm dirty.pgm", "", "doubtful", 4, {"readings_differ", "corner_off_line"}},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.strPictures + t.strOptions);
        const Outcome tJson = Run("measure " + t.strPictures + " --json " + t.strOptions);
        const Json tAnswer = Json::parse(tJson.strOut);
        EXPECT_EQ(tAnswer["verdict"], t.szVerdict);
        EXPECT_EQ(tJson.nExit, t.nExit);
        EXPECT_EQ(tAnswer["exit_code"], t.nExit);
        for (const std::string& strKind : t.aKinds)
            EXPECT_TRUE(Holds(tAnswer["warning_details"].dump(), {"\"" + strKind + "\""}));
        for (const auto& [strAxis, dRaw] : tAnswer["raw_deg"].items()) {
            const double dUncertainty = tAnswer["second_reading_standard_uncertainty_deg"][strAxis];
            EXPECT_GT(dUncertainty, 0);
            EXPECT_LT(dUncertainty, 0.01);
        }
        const Outcome tText = Run("measure " + t.strPictures + " " + t.strOptions);
        EXPECT_LE(std::ranges::count(tText.strOut, '\n'), 20) << tText.strOut;
        EXPECT_TRUE(Holds(tText.strOut, {" (second reading ", " +- 0.00"}));
    }
}

TEST_F(MeasureCommand, FilesMayVaryInFormAndName) {
    Render("--rx 0.8");
    const Json tPlain = MeasureAsJson(strPair);
    const std::string strSlave = Read("slave.pgm"), strPixels = strSlave.substr(strSlave.size() - 1728 * 972);
    Write("a \"b\" \xFF\n.pgm", "P5# one\n#two\n 1728# three\n\t972\r\n#four\n#\n255 " + strPixels);
    Write("calibration.bin", Read("calibration.bin") + std::string(1181, 'x'));
    EXPECT_EQ(MeasureAsJson("master.pgm 'a \"b\" \xFF\n.pgm'")["raw_deg"], tPlain["raw_deg"]);
}

TEST_F(MeasureCommand, ReportKeepsItsLinkAndModeAndWritesThroughNoPlantedOne) {
    Render();
    const Outcome t = RunInShell("umask 027; echo old >kept; chmod 604 kept; ln -s kept link; "
                                 "echo other >other; ln -s other kept.new-$$; exec '" ORVEX_ALIGN_PROGRAM
                                 "' measure master.pgm slave.pgm --calibration calibration.bin "
                                 "--report link --record new");
    EXPECT_EQ(t.nExit, 0) << t.strErr;
    EXPECT_TRUE(Read("kept").starts_with("<!"));
    const std::string strSum = RunInShell("sha256sum master.pgm").strOut.substr(0, 64);
    EXPECT_TRUE(Holds(Read("kept"), {strSum}));
    EXPECT_TRUE(Read("other") == "other\n");
    EXPECT_EQ(RunInShell("stat -c '%a %F' kept new link kept.*").strOut,
              "604 regular file\n640 regular file\n777 symbolic link\n777 symbolic link\n");
}

} // namespace program

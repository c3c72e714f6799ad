#include "support/failing_charts.h"
#include "tools/program.h"

#include <cmath>
#include <set>

using namespace support;

namespace program {
namespace {

const std::string strPair = "pair/master.pgm pair/slave.pgm";

std::string FirstLine(const std::string& str) {
    return str.substr(0, str.find('\n'));
}

// "/corners_px/left_top/x" and the like, of all numbers.
std::vector<std::string> NumbersIn(const Json& tJson) {
    std::vector<std::string> a;
    const Json tFlat = tJson.flatten();
    for (const auto& [strPath, t] : tFlat.items())
        if (t.is_number())
            a.push_back(strPath);
    return a;
}

} // namespace

using MeasureCommand = Program;

TEST_F(MeasureCommand, FindsTheRotationOfARenderedPair) {
    const char* const aszPoses[] = {
        "--rx 0.8 --ry -0.5 --rz 0.3 --noise 2",
        "--rx -1.2 --ry 1.1 --rz -0.9 --master-rx 0.4 --master-ry -0.3 --master-rz 0.6 --gain 0.8",
        "--rz 0.01 --size 2104x1560 --vignetting 0.3 --blur 0.8",
        "--rx 2.3 --ry -2.2 --rz 2.1",
    };
    for (const char* const szPose : aszPoses) {
        Render("pair", szPose);
        const Json tJson = MeasureAsJson(strPair, "--truth pair/truth.json");
        EXPECT_EQ(tJson["verdict"], "within_range") << szPose;
        const Json tTruth = tJson["truth"];
        for (const auto& [strAxis, t] : tTruth["relative_deg"].items()) {
            EXPECT_NEAR(t["measured"], t["true"], 0.05) << szPose << strAxis;
            EXPECT_EQ(t["measured"], tJson["raw_deg"][strAxis]);
        }
        for (const char* const szCamera : {"master", "slave"}) {
            EXPECT_EQ(NumbersIn(tTruth[szCamera]).size(), 30u) << "centre and four corners";
            for (const std::string& strPath : NumbersIn(tTruth[szCamera])) {
                if (strPath.ends_with("/difference")) {
                    EXPECT_LT(std::fabs(tTruth[szCamera][Json::json_pointer(strPath)].get<double>()), 0.3)
                        << szPose << strPath;
                }
            }
        }
    }
}

TEST_F(MeasureCommand, TextLeadsWithTheVerdictAndShowsBothKindsOfAngles) {
    Render("pair", "--rx 0.8 --ry -1.4 --rz 0.3 --noise 2");
    const Outcome tText = Measure(strPair);
    const Json tJson = MeasureAsJson(strPair);
    EXPECT_EQ(tText.nExit, 0);
    EXPECT_EQ(tText.strErr, "");
    EXPECT_EQ(FirstLine(tText.strOut), tJson["headline"]);
    for (const char* const szKind : {"raw_deg", "rescaled_deg"}) {
        char szAngle[32];
        std::snprintf(szAngle, sizeof szAngle, " %.4f ", tJson[szKind]["ry"].get<double>());
        EXPECT_NE(tText.strOut.find(szAngle), std::string::npos) << szAngle << tText.strOut;
    }
    EXPECT_NEAR(tJson["raw_deg"]["ry"], -1.4, 0.05);
    EXPECT_NEAR(tJson["rescaled_deg"]["ry"], (-1.4 + 0.2) * 1.8 / 2.3 - 0.2, 0.05);
    EXPECT_EQ(tJson["library_version"], "v1313.47.10.02");
    EXPECT_EQ(tJson["diagnostics"], Json({"Alignment Processing....."}));
}

TEST_F(MeasureCommand, AngleOutOfRangeIsNamedWithItsLimit) {
    Render("pair", "--ry -3.2 --rz 1");
    const Outcome t = Measure(strPair);
    EXPECT_EQ(t.nExit, 1);
    EXPECT_TRUE(FirstLine(t.strOut).starts_with("OUT OF RANGE: Ry -2.5")) << t.strOut;
    EXPECT_EQ(FirstLine(t.strOut).find("Rz"), std::string::npos);
    const Json tJson = MeasureAsJson(strPair);
    EXPECT_EQ(tJson["verdict"], "out_of_range");
    EXPECT_EQ(tJson["status"]["hex"], "0x1020015");
    EXPECT_NEAR(tJson["raw_deg"]["ry"], -3.2, 0.05);
}

struct Failure {
    const char* szHex;
    const char* szStage;
    const char* szCorner;
    const char* szFound; // a part of it
    Plane tPicture;
    std::set<std::string> aMeasured; // of this camera
};

// Which measurements have numbers.
std::set<std::string> MeasuredOf(const Json& tCamera) {
    std::set<std::string> a;
    for (const std::string& strPath : NumbersIn(tCamera))
        a.insert(strPath.substr(1, strPath.find('/', 1) - 1));
    a.erase("width_px");
    a.erase("height_px");
    return a;
}

std::vector<Failure> Failures() {
    const std::set<std::string> aCross = {"bar_span_px", "cross_angle_deg", "cross_centre_px"};
    std::set<std::string> aCorners = aCross;
    aCorners.insert("corners_px");
    return {
        {"0x1010006", "centre cross", "", "blank picture", Paper(), {}},
        {"0x101000A", "centre cross", "", "left end", LeftEndAside(), {"bar_span_px"}},
        {"0x1010012", "centre cross", "", "above or below", CentreAboveRows(), {"bar_span_px"}},
        {"0x101001D", "frame location", "", "lower right", UprightChart().Fill(1300, 700, 1727, 971, ubPaper),
         aCross},
        {"0x101001E", "frame binarisation", "", "surroundings", CentreAtFramesTop(), aCross},
        {"0x101001F", "corner points", "left top", "interrupted", WithoutLeftTop(), aCross},
        {"0x1010020", "corner points", "right top", "not found", WithoutRightTop(), aCorners},
        {"0x1010022", "corner points", "right down", "not found", WithoutRightDown(), aCorners},
    };
}

TEST_F(MeasureCommand, FailureTellsCameraStageAndWhatWasMissing) {
    Render("pair");
    Write("good.pgm", UprightChart());
    for (const Failure& t : Failures())
        for (const bool bMaster : {true, false}) {
            Write("bad.pgm", t.tPicture);
            const std::string strPictures = bMaster ? "bad.pgm good.pgm" : "good.pgm bad.pgm";
            const char *const szCamera = bMaster ? "master" : "slave", *const szOther =
                                                                           bMaster ? "slave" : "master";
            std::string strWhere = szCamera + std::string(" camera");
            if (*t.szCorner != '\0')
                strWhere += std::string(", ") + t.szCorner + " corner";
            SCOPED_TRACE(strWhere + " " + t.szHex);

            const Json tJson = MeasureAsJson(strPictures);
            EXPECT_EQ(tJson["exit_code"], 2);
            EXPECT_EQ(tJson["status"]["hex"], t.szHex);
            EXPECT_EQ(tJson["status"]["camera"], szCamera);
            EXPECT_EQ(tJson["status"]["where"], strWhere);
            EXPECT_EQ(tJson["status"]["stage"], t.szStage);
            EXPECT_EQ(NumbersIn(tJson["raw_deg"]).size(), 0u);
            EXPECT_EQ(MeasuredOf(tJson[szCamera]), t.aMeasured);
            EXPECT_EQ(MeasuredOf(tJson[szOther]).size(), bMaster ? 0u : 5u) << "slave second, own tilts last";

            const Outcome tText = Measure(strPictures);
            EXPECT_EQ(tText.nExit, 2);
            for (const std::string& strPart : {strWhere, std::string(t.szStage), std::string(t.szFound)})
                EXPECT_NE(FirstLine(tText.strOut).find(strPart), std::string::npos) << tText.strOut;
            for (const char* const szPart : {"  Looked for ", "  Found ", "  Try ", "\n  Calculation of "})
                EXPECT_NE(tText.strOut.find(szPart), std::string::npos) << szPart << tText.strOut;
        }
}

TEST_F(MeasureCommand, PictureAndCalibrationFilesMayVaryInForm) {
    Render("pair", "--rx 0.8");
    const std::string strSlave = Read("pair/slave.pgm"),
                      strPixels = strSlave.substr(strSlave.size() - 1728 * 972);
    const Json tPlain = MeasureAsJson(strPair);
    Write("slave.pgm", "P5# one\n#two\n 1728# three\n\t972\r\n#four\n#\n255 " + strPixels);
    Write("longer.bin", Read("pair/calibration.bin") + std::string(1181, 'x'));
    const Outcome t = Run("measure --json pair/master.pgm slave.pgm --calibration longer.bin");
    EXPECT_EQ(t.nExit, 0) << t.strErr;
    EXPECT_EQ(Json::parse(t.strOut)["raw_deg"], tPlain["raw_deg"]);
}

TEST_F(MeasureCommand, JsonStaysReadableWithAnyFileName) {
    Render("pair");
    const std::string strName = "a \"b\" \xFF\n.pgm";
    Write(strName, Read("pair/slave.pgm"));
    EXPECT_EQ(MeasureAsJson("pair/master.pgm '" + strName + "'")["verdict"], "within_range");
}

} // namespace program

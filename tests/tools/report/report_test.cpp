#include "support/browser.h"
#include "support/failing_charts.h"

#include <cmath>

using namespace support;

namespace program {
namespace {

constexpr double dTolerance = 0.001; // px; the page has four decimals

struct Box {
    double dLeft, dTop, dRight, dBottom;
};

Box BoxOf(const Json& t) {
    const double x = t["x"], y = t["y"], dWidth = t["width"], dHeight = t["height"];
    return {x, y, x + dWidth, y + dHeight};
}

void ExpectAt(const Json& tSeen, const Json& tMeasured) {
    EXPECT_NEAR(tSeen["x"], tMeasured["x"], dTolerance);
    EXPECT_NEAR(tSeen["y"], tMeasured["y"], dTolerance);
}

} // namespace

class ReportInBrowser : public InBrowser {
protected:
    void SetUp() override {
        InBrowser::SetUp();
        if (!IsSkipped())
            Render("--rx 0.6 --ry -0.5 --rz 1.4 --master-rz -0.7 --noise 2");
    }

    Json SeenIn(const std::string& strSize) const {
        return InBrowser::SeenIn(strSize, "report/self_check.js");
    }
};

namespace {

void ExpectFrameAround(const Json& tShapes, const std::string& strCamera, const Json& tCorners) {
    const Box tOuter = BoxOf(tShapes[strCamera + "-frame-outer"]),
              tInner = BoxOf(tShapes[strCamera + "-frame-inner"]);
    for (const Json& t : tCorners) {
        const double x = t["x"], y = t["y"];
        EXPECT_GT(std::min({x - tOuter.dLeft, tOuter.dRight - x, y - tOuter.dTop, tOuter.dBottom - y}), 20);
        EXPECT_LT(std::min({x - tInner.dLeft, tInner.dRight - x, y - tInner.dTop, tInner.dBottom - y}), -20);
    }
}

// Every fitted line, and no other, is drawn and goes with its box in the legend.
void ExpectFittedLines(const Json& tSeen, const Json& tTrust) {
    std::size_t nLines = 0;
    for (const std::string strCamera : {"master", "slave"})
        for (const auto& [strSide, tLine] : tTrust[strCamera]["side_line_px"].items()) {
            const std::string strId = strCamera + "-fitted-" + strSide;
            const bool bFitted = tTrust[strCamera]["side_residual_px"][strSide].is_number();
            ASSERT_EQ(tSeen["shapes"].contains(strId), bFitted) << strId;
            for (const char* const szEnd : {"from", "to"})
                if (bFitted)
                    ExpectAt(tSeen["shapes"][strId][szEnd], tLine[szEnd]);
            nLines += bFitted;
        }
    EXPECT_EQ(tSeen["hidden"].size(), nLines) << tSeen["hidden"];
}

void ExpectMeasuredShapes(const Json& tSeen, const std::string& strCamera, const Json& tCamera) {
    SCOPED_TRACE(strCamera);
    const Json& tShapes = tSeen["shapes"];
    const int nColumns = tCamera["width_px"], nRows = tCamera["height_px"];
    EXPECT_EQ(tSeen["pictures"][strCamera + "-picture"], (Json{nColumns, nRows}));
    const Box tPicture = BoxOf(tShapes[strCamera + "-picture"]);
    EXPECT_NEAR(tPicture.dLeft, -0.5, dTolerance) << "the first pixel's centre is 0";
    EXPECT_NEAR(tPicture.dTop, -0.5, dTolerance);
    EXPECT_NEAR(tPicture.dRight, nColumns - 0.5, dTolerance);
    EXPECT_NEAR(tPicture.dBottom, nRows - 0.5, dTolerance);

    const Json& tCentre = tCamera["cross_centre_px"];
    ExpectAt(tShapes[strCamera + "-centre"], tCentre);
    const Box tWindow = BoxOf(tShapes[strCamera + "-window"]);
    EXPECT_NEAR(tWindow.dRight - tWindow.dLeft, 0.45 * nColumns, 1.5);
    EXPECT_NEAR(tWindow.dBottom - tWindow.dTop, 0.45 * nRows, 1.5);
    EXPECT_NEAR((tWindow.dLeft + tWindow.dRight) / 2, tCentre["x"], 8) << "the coarse centre lies on the bar";
    const Json tBar = tShapes[strCamera + "-bar-horizontal"].flatten();
    const double dRise = double(tBar["/from/y"]) - double(tBar["/to/y"]);
    EXPECT_NEAR(double(tBar["/to/y"]) + dRise / 2, tCentre["y"], dTolerance);
    EXPECT_NEAR(std::atan2(dRise, double(tBar["/to/x"]) - double(tBar["/from/x"])) * 180 / M_PI,
                tCamera["cross_angle_deg"], 0.001);

    const Json& tCorners = tCamera["corners_px"];
    ExpectFrameAround(tShapes, strCamera, tCorners);
    for (const auto& [strCorner, t] : tCorners.items()) {
        const std::string strMark = strCamera + "-corner-" + strCorner;
        ExpectAt(tShapes[strMark], t);
        const Json& tZoomed = tSeen["zoomed"][strMark];
        ExpectAt(tZoomed["place"], t);
        EXPECT_LT(tZoomed["off"], 1.0) << "screen px from the middle";
        EXPECT_NEAR(tZoomed["ring"], 16, 1) << "screen px at every zoom";
        EXPECT_LT(tZoomed["view"], nColumns / 20);
    }
    ExpectAt(tShapes[strCamera + "-side-left"]["from"], tCorners["left_top"]);
    ExpectAt(tShapes[strCamera + "-side-left"]["to"], tCorners["left_down"]);
    ExpectAt(tShapes[strCamera + "-side-top"]["to"], tCorners["right_top"]);
}

} // namespace

TEST_F(ReportInBrowser, PassingPairStandsWhereItWasMeasured) {
    const Json tJson = MeasureAsJson("master.pgm slave.pgm", "--report report.html");
    ASSERT_EQ(tJson["exit_code"], 0);
    for (const char* const szSize : {"1400,1000", "500,900"}) {
        SCOPED_TRACE(szSize);
        const Json tSeen = SeenIn(szSize);
        EXPECT_LE(tSeen["overflow"], 0);
        for (const std::string strCamera : {"master", "slave"})
            ExpectMeasuredShapes(tSeen, strCamera, tJson[strCamera]);
        ExpectFittedLines(tSeen, tJson["trust"]);
    }
    Photograph("passing-wide", "--window-size=1400,1500");
    Photograph("passing-narrow", "--window-size=500,2600");
    Photograph("passing-dark", "--window-size=1400,1500" + strDark);
    Photograph("passing-narrow-dark", "--window-size=500,2600" + strDark);
}

TEST_F(ReportInBrowser, FailingPairShowsWhatWasFoundAndWhereItStopped) {
    const std::string strName = "a<b>&amp;\"c\".pgm", strQuoted = " '" + strName + "' ";
    const struct {
        const char* szName;
        Plane tPicture;
        std::string strPictures;
        const char* szStopped;
        std::size_t nMaster, nSlave; // shapes
        double dX, dY;               // of the mark "failed here": a corner, or the window's middle
    } aCases[] = {
        {"frame", UprightChart().Fill(1300, 700, 1727, 971, ubPaper), strQuoted + "slave.pgm",
         "stopped at frame location: no edge", 12, 3, 1314, 686},
        {"blank", Paper(), strQuoted + "slave.pgm", "stopped at centre cross: ", 3, 3, 194, 109},
        // All: picture, window, 2 frame rectangles, 2 bars, centre, 4 corners, 4 sides, 4 fitted lines, the
        // second reading and what it left out; and the place of the failure.
        {"corner", WithoutRightDown(), "master.pgm" + strQuoted,
         "stopped at corner points: the frame's line is not found", 21, 19, 1455, 804},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.szName);
        Write(strName,
              "P5\n1728 972\n255\n" + std::string(t.tPicture.aPixels.begin(), t.tPicture.aPixels.end()));
        const Json tJson = MeasureAsJson(t.strPictures, "--report report.html"), tSeen = SeenIn("1400,1000");
        EXPECT_EQ(tJson["exit_code"], 2);
        ExpectFittedLines(tSeen, tJson["trust"]);
        std::size_t nMaster = 0, nSlave = 0;
        for (const auto& [strId, tShape] : tSeen["shapes"].items())
            ++(strId.starts_with("master") ? nMaster : nSlave);
        const bool bMaster = tJson["status"]["camera"] == "master";
        const Json& tFailure = tSeen["shapes"][bMaster ? "master-failure" : "slave-failure"];
        EXPECT_NEAR(tFailure["x"], t.dX, 10);
        EXPECT_NEAR(tFailure["y"], t.dY, 10);
        EXPECT_EQ(nMaster, t.nMaster) << tSeen["shapes"];
        EXPECT_EQ(nSlave, t.nSlave) << tSeen["shapes"];
        const std::string strCaptions = tSeen["captions"].dump(), strShown = Json(strName).dump();
        EXPECT_TRUE(Holds(strCaptions, {strShown.substr(1, strShown.size() - 2), t.szStopped}));
        Photograph(std::string("failing-") + t.szName, "--window-size=1400,1500");
    }
    EXPECT_LE(SeenIn("500,900")["overflow"], 0);
    Photograph("failing-narrow", "--window-size=500,2600");
    Photograph("failing-narrow-dark", "--window-size=500,2600" + strDark);
}

TEST_F(ReportInBrowser, LabelsOfAFrameAtTheBorderStayWithinThePicture) {
    Render("--rx=-2.0 --ry=1.7 --rz=-2.45 --master-rx=-1.1 --noise 2 --overwrite");
    const Json tJson = MeasureAsJson("master.pgm slave.pgm", "--report report.html");
    EXPECT_LT(tJson["slave"]["corners_px"]["left_top"]["y"], 0) << "otherwise there is room beyond the frame";
    for (const char* const szSize : {"1400,1000", "500,900"})
        EXPECT_EQ(SeenIn(szSize)["cutLabels"], Json::array());
    Photograph("border-wide", "--window-size=1400,1500");
    Photograph("border-narrow", "--window-size=500,2600");
}

} // namespace program

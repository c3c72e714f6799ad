#include "support/browser.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace program {

using BatchReportInBrowser = InBrowser;

namespace {

const std::string strHostile = "</script><b onload=x>\"&amp;\u202E";

// The rows of a week as a batch would have left them: three stations, of which b drifts and c has doubtful
// pairs from the middle on and one that failed; all of the pictures of one pair.
struct Week {
    std::string strList = "id,station,time,master,slave,true_rx_deg,true_ry_deg,true_rz_deg\n", strRows;
    std::map<std::string, std::vector<double>> tRy;
    std::size_t nDoubtful = 0;
};

Week MadeUp(nlohmann::ordered_json tRow, int nRows) { // a row's order is kept
    Week t;
    for (int i = 0; i < nRows; ++i) {
        const std::string strStation = i % 3 == 0   ? strHostile
                                       : i % 3 == 1 ? "b"
                                                    : "c",
                          strId = std::string("M") + std::to_string(10000 + i).substr(1);
        const double dRy = 0.3 * std::sin(i * 2.4) + (strStation == "b" ? 1.2 * i / nRows : 0.0);
        const bool bFailed = i == nRows - 1, bDoubtful = !bFailed && strStation == "c" && i >= nRows / 2;
        tRow["id"] = strId;
        tRow["station"] = strStation;
        tRow["time"] = std::string("2026-11-") + std::to_string(16 + i * 7 / nRows) + " 08:00";
        tRow["raw_ry_deg"] = bFailed ? Json() : Json(dRy);
        tRow["second_reading_ry_deg"] = bFailed ? Json() : Json(dRy - (bDoubtful ? 0.06 : 0.001));
        tRow["verdict"] = bFailed ? "not_measured" : bDoubtful ? "doubtful" : "within_range";
        tRow["exit_code"] = bFailed ? 2 : bDoubtful ? 4 : 0;
        tRow["words"] = bFailed ? "no <edge>" : "";
        tRow["warning_kinds"] = bDoubtful ? Json("slave:large_residual") : Json();
        t.strRows += tRow.dump() + "\n";
        std::string strQuoted = strStation;
        for (std::size_t n = 0; (n = strQuoted.find('"', n)) != strQuoted.npos; n += 2)
            strQuoted.insert(n, 1, '"');
        t.strList += strId + ",\"" + strQuoted + "\"," + tRow["time"].get<std::string>() +
                     ",0001/master.pgm,0001/slave.pgm,0,0,0\n";
        t.nDoubtful += bDoubtful;
        if (!bFailed)
            t.tRy[strStation].push_back(dRy);
    }
    return t;
}

std::string Shown(double d) {
    std::ostringstream str;
    str << std::fixed << std::setprecision(4) << d;
    return str.str();
}

double MeanOf(const std::vector<double>& ad) {
    double dSum = 0;
    for (const double d : ad)
        dSum += d;
    return dSum / static_cast<double>(ad.size());
}

} // namespace

TEST_F(BatchReportInBrowser, ShapesAndTableAreTheRowsNumbers) {
    constexpr int kRows = 150;
    Render("--count 1");
    Write("one.csv", "id,station,time,master,slave\n1,a,b,0001/master.pgm,0001/slave.pgm\n");
    ASSERT_EQ(Run("batch one.csv --out one --format jsonl").nExit, 0);
    const Week tWeek = MadeUp(nlohmann::ordered_json::parse(Read("one")), kRows);
    Write("L", tWeek.strList);
    Write("r", tWeek.strRows);
    const std::string strCommand =
        "batch L --resume --out r --format jsonl --report report.html --by Station ";
    ASSERT_EQ(Run(strCommand + "--reports '%own pages'").nExit, 2);
    EXPECT_EQ(Read("r"), tWeek.strRows);
    EXPECT_TRUE(Holds(Read("%own pages/row-00150.html"), {"<h1>", "0001/slave.pgm"}));
    for (const char* const szSize : {"1400,1000", "500,900"}) {
        const Json tSeen = SeenIn(szSize, "batch_report/page_check.js");
        SCOPED_TRACE(tSeen.dump(1));
        EXPECT_LE(tSeen["overflow"], 0);
        double dLowest = 9, dHighest = -9;
        // Groups stand in the order of their names.
        const std::string strShown = "</script><b onload=x>\"&amp;?";
        const std::array<std::string, 3> aStations = {strHostile, "b", "c"};
        const Json &tRy = tSeen["charts"]["Ry, raw, degrees, along time"],
                   &tBars = tSeen["charts"]["Ry, raw, degrees: rows"]["groups"],
                   &tDifference = tSeen["charts"]["Ry: less its second reading, degrees"];
        for (std::size_t i = 0; i < aStations.size(); ++i) {
            const std::vector<double>& adRy = tWeek.tRy.at(aStations[i]);
            dLowest = std::min(dLowest, std::ranges::min(adRy));
            dHighest = std::max(dHighest, std::ranges::max(adRy));
            const Json& tDots = tRy["groups"][std::string("g") + std::to_string(i)];
            EXPECT_EQ(tDots["count"], adRy.size());
            EXPECT_EQ(tDots["lost"], "");
            EXPECT_NEAR(tDots["mean"], MeanOf(adRy), 0.002);
            EXPECT_NEAR(tDots["line"], MeanOf(adRy), 0.006) << "a unit of the chart";
            EXPECT_TRUE(Holds(tDots["told"], {"mean " + Shown(MeanOf(adRy))}));
            EXPECT_NEAR(double(tBars[std::string("g") + std::to_string(i)]) / double(tBars["g0"]),
                        double(adRy.size()) / double(tWeek.tRy.at(strHostile).size()), 0.01);
            EXPECT_EQ(tDifference["groups"][std::string("g") + std::to_string(i)]["count"], adRy.size());
            EXPECT_EQ(tSeen["legend"][i], "station " + (i == 0 ? strShown : aStations[i]));
        }
        EXPECT_NEAR(tDifference["groups"]["g1"]["mean"], 0.001, 2e-4);
        const Json& tMarks = tSeen["charts"]["What is not within range, along time"]["marks"];
        EXPECT_EQ(tMarks, (Json{{"doubtful", tWeek.nDoubtful}, {"not_measured", 1}}));
        EXPECT_EQ(tSeen["counts"][2], (Json{"doubtful", std::to_string(tWeek.nDoubtful), "0", "0",
                                            std::to_string(tWeek.nDoubtful)}));
        EXPECT_EQ(tSeen["cards"].size(), 7u) << "the failed one and a few of the doubtful ones";
        EXPECT_TRUE(Holds(tSeen["cards"][0]["text"], {"M0149", "not measured", "no <edge>"}));
        for (const Json& tCard : tSeen["cards"])
            EXPECT_EQ(tCard["width"], 348) << "two pictures of 172 columns and a gap";
        EXPECT_EQ(tSeen["link"], "./%25own%20pages/row-00150.html");
        EXPECT_EQ(tSeen["first"][1], "M0149");
        EXPECT_EQ(tSeen["sorted"]["up"][6], Shown(dLowest));
        EXPECT_EQ(tSeen["sorted"]["down"][6], Shown(dHighest));
        EXPECT_EQ(tSeen["shown"], 100);
        EXPECT_EQ(tSeen["more"], kRows);
        const Json& tFiltered = tSeen["filtered"];
        EXPECT_EQ(tFiltered["column"]["told"], "50 of 150 rows");
        EXPECT_EQ(tFiltered["column"]["first"][2], "b");
        EXPECT_EQ(tFiltered["words"]["told"], "3 of 150 rows");
        EXPECT_EQ(tFiltered["none"]["told"], "0 of 150 rows");
    }
    Photograph("batch-wide", "--window-size=1400,2600");
    Photograph("batch-narrow-dark", "--window-size=500,4400" + strDark);
}

} // namespace program

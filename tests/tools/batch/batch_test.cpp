#include "support/program.h"

#include <regex>
#include <sstream>

namespace program {
namespace {

const std::string strProgram = std::string("'") + ORVEX_ALIGN_PROGRAM + "' ";

using Row = nlohmann::ordered_json; // the columns' order is part of the form

std::vector<Row> RowsOf(const std::string& strJsonLines) {
    std::vector<Row> a;
    std::istringstream tLines(strJsonLines);
    for (std::string str; std::getline(tLines, str);)
        a.push_back(Row::parse(str));
    return a;
}

// Holds the measurement of a pair up until somebody writes to it.
const std::string strGate = "mkfifo gate.pgm; ";

// Starts a batch behind such a gate, which no pair's time limit opens, and waits until its file has as many
// lines.
std::string StartBatch(const std::string& strArguments, int nLines) {
    return strProgram + "batch --timeout 86400 " + strArguments +
           " & p=$!; until [ \"$(cat r 2>/dev/null | wc -l)\" -ge " + std::to_string(nLines) +
           " ]; do sleep 0.02; done; ";
}

} // namespace

class BatchCommand : public Program {
protected:
    // As JSON, so that every value has its type.
    std::vector<Row> Rows(int nExit, const std::string& strArguments,
                          const std::string& strBefore = ":") const {
        const Outcome t = Run("batch --format jsonl " + strArguments, strBefore);
        EXPECT_EQ(t.nExit, nExit) << t.strErr;
        return RowsOf(t.strOut);
    }
};

TEST_F(BatchCommand, StudyComesOutAtItsTruthInTheListsOrder) {
    Render("--count 2 --repeats 2 --noise 2 --range 1 --rx 0.5 --master-range 0.3", "study");
    Render("--count 2 --repeats 2 --noise 2 --range 1 --rx 0.5 --master-range 0.3", "again");
    EXPECT_EQ(Read("study/LIST.csv"), Read("again/LIST.csv"));
    EXPECT_EQ(Read("study/0001-0001/calibration.bin"), Read("study/0001-0002/calibration.bin"));
    const std::vector<Row> aRows = Rows(0, "study/LIST.csv --jobs 3");
    ASSERT_EQ(aRows.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        const std::string strFolder = std::string(i < 2 ? "0001" : "0002") + (i % 2 == 0 ? "-0001" : "-0002");
        EXPECT_EQ(aRows[i]["id"], strFolder.substr(0, 4));
        EXPECT_EQ(aRows[i]["master"], strFolder + "/master.pgm");
        const Json tTruth = Json::parse(Read("study/" + strFolder + "/truth.json"))["relative_deg"];
        for (const std::string strAxis : {"rx", "ry", "rz"}) {
            EXPECT_NEAR(aRows[i]["raw_" + strAxis + "_deg"], tTruth[strAxis], 0.05);
            EXPECT_TRUE(Holds(Read("study/LIST.csv"), {tTruth[strAxis].dump()}));
        }
    }
    EXPECT_NE(aRows[0]["raw_rx_deg"], aRows[1]["raw_rx_deg"]) << "the noise is each picture's own";
    EXPECT_NE(Json::parse(Read("study/0001-0001/truth.json"))["relative_deg"],
              Json::parse(Read("study/0002-0001/truth.json"))["relative_deg"]);
    for (const std::string strPair : {"0001-0001/", "0001-0002/", "0002-0001/", "0002-0002/"})
        for (const std::string& strFile : {strPair + "master.pgm", strPair + "slave.pgm"}) {
            const std::string str = Read("study/" + strFile);
            Write("again/" + strFile,
                  str.substr(str.size() - 1728 * 972) + std::string(1728 * 972 / 2, '\x80'));
        }
    EXPECT_EQ(Rows(0, "again/LIST.csv --raw 1728x972"), aRows) << "as the phone's frames";
    EXPECT_EQ(Rows(2, "again/LIST.csv --raw 1728x972 --raw-slave 1000x500")[0]["camera"], "slave");
    std::string strFirst;
    for (const Row& t : aRows[0])
        strFirst += t.is_null() ? "," : (t.is_string() ? t.get<std::string>() : t.dump()) + ",";
    strFirst.back() = '\n';
    EXPECT_TRUE(Holds(Run("batch study/LIST.csv").strOut, {"\n" + strFirst})) << "both forms hold the same";
}

TEST_F(BatchCommand, ListsAsPeopleHaveThemAreReadRightlyOrRefusedWithTheReason) {
    Write("L", "slave,master\ns,m\n");
    const std::size_t nOwn = Rows(3, "L").at(0).size();
    const std::array<std::string, 3> aRead[] = {
        // List, what the row says, and the pair with the list's other columns.
        {"ID;Master ;SLAVE\r\nA;m, 1;s\r\n", "m, 1: cannot", R"(["A","m, 1","s"])"},
        {"\r\nslave\tLot-No\tmaster\t\n\n s 1 \t\t\"\"\"m\"\"\"\t\n", "cannot",
         R"(["1","\"m\"","s 1","Lot-No",null])"},
        {"\xEF\xBB\xBFmaster;slave;note; time\nm;\" s \" ;\"a;\nc\";12:00", "cannot",
         R"(["1","m"," s ","note","a;\nc","time","12:00"])"},
        {"master,slave,x;y;z;w\nm,s,\xE9\n", "cannot", R"(["1","m","s","x;y;z;w","\ufffd"])"},
        {"Camera,master,slave,list_camera,,\n7,m,s,8,9,\n", "cannot",
         R"(["1","m","s","list_list_Camera","7","list_camera","8"])"},
        {"master,slave,true-RX-deg,VERDICT\nm,s,\"0,5\",x\n",
         "line 2 of the list: \"0,5\" under \"true_rx_deg\" is not a number",
         R"(["1","m","s","list_VERDICT","x"])"},
        {"lot;master;slave\nL\n", "line 2 of the list: it has 1 column, but the first line names 3",
         R"(["1",null,null,"lot","L"])"},
        {"I D\tmaster\tslave\n\n\tm\ts\n", "line 3 of the list: the column \"id\" is empty",
         R"([null,"m","s"])"},
    };
    for (const auto& [strList, strWords, strTold] : aRead) {
        Write("L", strList);
        const Row tRow = Rows(3, "L").at(0);
        Row tTold = {tRow["id"], tRow["master"], tRow["slave"]};
        for (auto p = std::next(tRow.begin(), static_cast<std::ptrdiff_t>(nOwn)); p != tRow.end(); ++p)
            tTold.insert(tTold.end(), {p.key(), p.value()});
        EXPECT_EQ(tTold.dump(-1, ' ', true), strTold);
        EXPECT_TRUE(Holds(tRow["words"], {strWords}));
    }
    const std::pair<std::string, std::string> aRefused[] = {
        {"", "L: is empty"},
        {"master,slave\n", "no pair to measure"},
        {"Master;file\na;b\n", "no column \"slave\"; its columns are \"Master\", \"file\""},
        {"master,SLAVE,id, slave\na,b,c,d\n",
         "a column twice: its columns 2 and 4 are \"SLAVE\" and \"slave\""},
        {"master\tslave\tlot no\tLot_No\na\tb\tc\td\n", "columns 3 and 4 are \"lot no\" and \"Lot_No\""},
        {"master;slave\n\na;\"b\n", "in line 3 a quote is opened that is never closed"},
        {std::string("\xFF\xFEm\0a\0", 6), "is text in UTF-16.\n  Save it as UTF-8"},
        {"master,slave\ra,b\r", "no column \"slave\"; its columns are \"master\", \"slave?a\", \"b\""},
        {std::string("\x7F"
                     "ELF\0\1\2,",
                     8),
         "binary file"},
    };
    for (const auto& [strList, strTold] : aRefused) {
        Write("L", strList);
        ExpectRefused(3, {"batch L", {strTold}});
    }
}

TEST_F(BatchCommand, TwoPatternsMakePairsByWhatTheirStarStandsFor) {
    for (const char* const szFile : {"b1/0_m", "a/0_m", "a/0_s", "c/0_s", "c/1_m", ".d/0_m"}) {
        std::filesystem::create_directories((m_tFolder / szFile).parent_path());
        Write(szFile, "");
    }
    const std::array<std::string, 3> aTold[] = {{"a", "a/0_s", "a/0_m: "},
                                                {"b1", "b1/0_s", "b1/0_m: has no partner"},
                                                {"c", "c/0_s", "c/0_s: has no partner"}};
    const std::vector<Row> aRows = Rows(3, "--pairs '*/0_m' '*/0_s'");
    ASSERT_EQ(aRows.size(), std::size(aTold));
    for (std::size_t i = 0; i < aRows.size(); ++i) {
        EXPECT_EQ(aRows[i]["id"], aTold[i][0]);
        EXPECT_EQ(aRows[i]["slave"], aTold[i][1]);
        EXPECT_TRUE(Holds(aRows[i]["words"], {aTold[i][2]}));
    }
    ExpectRefused(3, {"batch --pairs 'c/*_m' 'c/*_s'", {"makes no pair with c/*_s"}});
    ExpectRefused(64, {"batch --pairs 'c/*/*' 'c/*'", {"\"c/*/*\" does not have one *"}});
}

TEST_F(BatchCommand, BadRowIsARowAndTheHighestConcernIsTheExitCode) {
    Render("--rx 0.5", "sub/good");
    Render("--ry -3.2", "sub/far");
    Write("sub/blank.pgm", "P5 1000 500 255\n" + std::string(500000, '\xC8'));
    const std::string strHead = "\xEF\xBB\xBF"
                                "calibration,\"extra\",slave,master\r\n",
                      strGood =
                          "good/calibration.bin,\"a, \"\"b\"\"\r\n\",good/slave.pgm,good/master.pgm\r\n",
                      strFar = "far/calibration.bin,,far/slave.pgm,far/master.pgm\r\n",
                      strTiny = "good/calibration.bin,,good/slave.pgm,blank.pgm\r\n",
                      strGone = "good/calibration.bin,,\"a, \"\"b\"\".pgm\",-x\r\n",
                      strHole = "good/calibration.bin,,,good/master.pgm\r\n", strShort = ",,x\r\n",
                      strHeld = "good/calibration.bin,,good/slave.pgm,../gate.pgm";
    Write("sub/L", strHead + strGood);
    EXPECT_EQ(Rows(0, "sub/L").size(), 1u);
    Write("sub/L", strHead + strFar + strGood);
    EXPECT_EQ(Rows(1, "sub/L").size(), 2u);
    Write("sub/L", strHead + strTiny + strFar);
    EXPECT_EQ(Rows(2, "sub/L").size(), 2u);
    Write("sub/L",
          strHead + strGood + strFar + "\r\n" + strTiny + strGone + strHole + strHole + strShort + strHeld);
    const Outcome t = Run("batch sub/L --resume --out r --format jsonl",
                          strGate + StartBatch("sub/L --out r --format jsonl", 7) +
                              "exec 9>gate.pgm; kill -9 $(cat /proc/$p/task/$p/children); wait $p");
    EXPECT_EQ(t.nExit, 3);
    EXPECT_TRUE(Holds(t.strOut, {"  2 x list: the column \"slave\" is empty", "  1 x master: cannot be read",
                                 "\n  out of range                2\n  not measured                3, 8\n"
                                 "  unreadable or unfit input   4, 5, 6, 7\n"}));
    const std::vector<Row> aRows = RowsOf(Read("r"));
    const std::tuple<int, const char*, const char*> aCases[] = {
        {0, "within_range", ""},
        {1, "out_of_range", "out of range"},
        {2, "not_measured", "no "},
        {3, "unfit_input", "-x: cannot be read"},
        {3, "unfit_input", "line 8 of the list: the column \"slave\" is empty"},
        {3, "unfit_input", "line 9 of the list: the column \"slave\" is empty"},
        {3, "unfit_input", "line 10 of the list: it has 3 columns, but the first line names 4"},
        {2, "no_answer", "ended by signal 9"}};
    ASSERT_EQ(aRows.size(), std::size(aCases));
    for (std::size_t i = 0; i < aRows.size(); ++i) {
        EXPECT_EQ(aRows[i]["id"], std::to_string(i + 1));
        const auto& [nExitCode, szVerdict, szWords] = aCases[i];
        EXPECT_EQ(aRows[i]["exit_code"], nExitCode) << aRows[i];
        EXPECT_EQ(aRows[i]["verdict"], szVerdict);
        EXPECT_TRUE(Holds(aRows[i]["words"], {szWords}));
    }
    EXPECT_EQ(aRows[3]["slave"], "a, \"b\".pgm");
    Write("sub/L", strHead + strHeld);
    EXPECT_TRUE(Holds(Rows(2, "sub/L --timeout 1").at(0)["words"], {"no answer within 1 s"}));
}

TEST_F(BatchCommand, DoubtfulAngleIsWarnedOfInItsRow) {
    Render("--rx=-2.0 --ry=1.7 --rz=-2.45 --master-rx=-1.1 --noise 2");
    const Json tAnswer = MeasureAsJson("master.pgm slave.pgm");
    Write("L", "master,slave,calibration\nmaster.pgm,slave.pgm,calibration.bin\n");
    const Row tRow = Rows(4, "L").at(0);
    EXPECT_EQ(tRow["verdict"], "doubtful");
    EXPECT_EQ(Run("batch L --accept-doubtful").nExit, 0);
    const Row tSecond = tAnswer["second_reading_deg"];
    EXPECT_EQ(tRow["second_reading_rx_deg"], tSecond["rx"]);
    const std::string strWarnings = tRow["warnings"], strFirst = tAnswer["warnings"].at(0);
    EXPECT_TRUE(strWarnings.starts_with(strFirst)) << strWarnings;
    EXPECT_TRUE(strWarnings.ends_with(std::string(tAnswer["warnings"].back()))) << strWarnings;
    const Row tTrust = tAnswer["trust"]["slave"];
    EXPECT_EQ(tRow["trust_slave_side_corner_distance_top_px"], tTrust["side_corner_distance_px"]["top"]);
    EXPECT_EQ(tRow["trust_slave_side_lines_read_left_percent"], tTrust["side_lines_read_percent"]["left"]);
}

TEST_F(BatchCommand, SlowPairHoldsFewFinishedRowsBack) {
    Render();
    std::string strList = "calibration,slave,master\n";
    for (int i = 0; i < 40; ++i)
        strList += "calibration.bin,slave.pgm," + std::string(i == 0    ? "gate.pgm\n"
                                                              : i == 15 ? "last.pgm\n"
                                                              : i == 16 ? "never.pgm\n"
                                                                        : "master.pgm\n");
    Write("L", strList);
    // After the last one no other is begun: the free process has closed it, and opens none.
    const Outcome t = Run(
        "--version", strGate + "mkfifo last.pgm never.pgm; " + StartBatch("L --jobs 2 --out r", 1) +
                         "{ : >never.pgm; echo begun; } & q=$!; cat master.pgm >last.pgm; n=0; "
                         "until [ $n = 10 ]; do n=$((n + 1)); sleep 0.02; for c in "
                         "$(cat /proc/$p/task/$p/children); do "
                         "! ls -l /proc/$c/fd | grep -q last.pgm || n=0; done; done; kill -INT $p; wait $p; "
                         "kill $q");
    EXPECT_TRUE(Holds(t.strErr, {"after 0 of 40 rows, which r holds.\n  Go on with"}));
    EXPECT_FALSE(Holds(t.strOut, {"begun"}));
}

TEST_F(BatchCommand, KilledAndResumedRunHasTheBytesOfAnUndisturbedOne) {
    Render("--count 4 --noise 2", ".");
    RunInShell("sed -i 's/,/;/g; 1s/$/;Set/; 2,$s/$/;\"A, \"\"B\"\"\"/' LIST.csv");
    for (const auto& [strFormat, strSignal] : {std::pair<std::string, std::string>("csv", "KILL"),
                                               {"csv", "INT"},
                                               {"jsonl", "KILL"},
                                               {"jsonl", "TERM"}}) {
        SCOPED_TRACE(strFormat + strSignal);
        const std::string strArguments = "LIST.csv --jobs 2 --out r --format " + strFormat;
        const Outcome tWhole = Run("batch " + strArguments, "rm -f r");
        EXPECT_EQ(tWhole.strErr, "") << "no progress in a pipe";
        const std::string strWhole = Read("r");
        // The first one lets the pair behind the gate a moment to end, the second none.
        const std::string strKill = "kill -" + strSignal + " $p; ";
        const Outcome tStopped =
            Run("--version", "rm r; mv 0003/master.pgm kept; " + strGate + "mv gate.pgm 0003/master.pgm; " +
                                 StartBatch(strArguments, strFormat == "csv" ? 3 : 2) + strKill +
                                 "sleep 0.1; " + strKill +
                                 "wait $p; echo code $?; mv 0003/master.pgm gate.pgm; "
                                 "mv kept 0003/master.pgm; : <>gate.pgm; rm gate.pgm");
        const std::string strPart = Read("r");
        EXPECT_LT(strPart.size(), strWhole.size());
        EXPECT_TRUE(strWhole.starts_with(strPart)) << strPart;
        const bool bKilled = strSignal == "KILL";
        const char* const szCode = bKilled ? "code 137" : strSignal == "INT" ? "code 130" : "code 143";
        EXPECT_TRUE(Holds(tStopped.strOut, {szCode})) << tStopped.strErr;
        if (bKilled) // as a write that the kill cut off leaves it
            Write("r", strWhole.substr(0, strPart.size() + 9));
        else
            EXPECT_TRUE(Holds(tStopped.strErr, {"after 2 of 4 rows"}));
        const Outcome tResumed = Run("batch --resume " + strArguments);
        EXPECT_EQ(Read("r"), strWhole);
        EXPECT_EQ(tResumed.strOut, tWhole.strOut) << "the summary tells of all rows";
        const std::string strGrown = "batch L --out g --format " + strFormat;
        EXPECT_EQ(Run(strGrown, "rm -f g; head -3 LIST.csv >L").nExit, 0);
        EXPECT_EQ(Run(strGrown + " --resume", "cp LIST.csv L").strOut, tWhole.strOut);
        EXPECT_EQ(Read("g"), strWhole);
    }
}

TEST_F(BatchCommand, TerminalShowsCountRateAndTimeLeft) {
    Render("--count 2");
    // The first pair takes long enough, from its picture's opening on, for the bar to be drawn again.
    const std::string strShown = ShownOnTerminal("batch LIST.csv --timeout 86400 --jobs 1 --out r",
                                                 "mv 0001/master.pgm kept; mkfifo 0001/master.pgm; "
                                                 "{ exec 9>0001/master.pgm; sleep 0.3; cat kept >&9; } & :");
    const std::regex tBars("\\r\\[-{40}\\] 0/2\\x1b\\[K\\r\\[#{20}-{20}\\] 1/2  [0-9]+\\.[0-9]/s  0:[0-9]{2} "
                           "left(.|\\r)*\\r\\x1b\\[K");
    EXPECT_TRUE(std::regex_match(strShown, tBars)) << strShown;
}

TEST_F(BatchCommand, SummaryAndGaugeStudyTellHandReckonedFigures) {
    Render("--count 1 --range 0");
    Row tRow = Rows(0, "LIST.csv")[0];
    std::string strRows, strList = "Id,Master,slave,calibration,TRUE Rx deg,trueRy-deg,true_rz_deg\n";
    for (const auto& [szId, nRx] : {std::pair("A", 1), {"B", 5}, {"A", 3}, {"B", 9}}) {
        tRow["id"] = szId;
        tRow["raw_rx_deg"] = nRx;
        if (nRx != 1)
            tRow["warning_kinds"] =
                nRx == 5 ? "slave:large_residual | different_sizes" : "slave:large_residual";
        strRows += tRow.dump() + "\n";
        strList += szId + std::string(",0001/master.pgm,0001/slave.pgm,0001/calibration.bin,1,0,0\n");
    }
    Write("r", strRows);
    Write("L", strList);
    EXPECT_TRUE(Holds(
        Run("batch L --resume --out r --format jsonl --repeatability --summary s").strOut,
        {"\n3 rows measured with warnings: their angles may be wrong\n",
         "  measured with warnings      B, A\n",
         "  3 x slave camera: large residual, N px RMS from the fitted line, more than 0.3 px. Check",
         "  1 x the pictures differ in size: master N x N px, slave N x N px. The",
         "  3 of 4 measured rows carry warnings;", "  Rx   4   4.5000      3.4157    1.0000    9.0000\n",
         "  Rx   4   3.5000      3.4157    0.0000    8.0000\n",
         "  Rx     2           2.0   2.2361    3.1623   3.8730   268.3 %\n"}));
    const Json tSummary = Json::parse(Read("s"));
    EXPECT_EQ(tSummary["verdicts"]["within_range"], Json({{"count", 4}, {"ids", {"A", "B", "A", "B"}}}));
    EXPECT_EQ(tSummary["verdicts"]["no_answer"]["count"], 0);
    EXPECT_EQ(tSummary["measured_with_warnings"]["ids"], Json({"B", "A", "B"}));
    EXPECT_EQ(tSummary["warning_kinds"], Json({{"different_sizes", 1}, {"slave:large_residual", 3}}));
    EXPECT_EQ(tSummary["raw_deg"]["rx"]["maximum"], 9);
    EXPECT_EQ(tSummary["raw_minus_truth_deg"]["rx"]["mean"], 3.5);
    EXPECT_NEAR(tSummary["repeatability_deg"]["rx"]["within"], 2.2361, 1e-4);
    Write("L", strList.substr(0, strList.find("\nA,", strList.find("\nB")) + 1));
    Write("r", strRows.substr(0, strRows.find("\n", strRows.find('\n') + 1) + 1));
    EXPECT_TRUE(Holds(Run("batch L --resume --out r --format jsonl --repeatability --summary s").strOut,
                      {"  within and share need at least two measured rows with one id, "}));
    EXPECT_EQ(Json::parse(Read("s"))["repeatability_deg"]["rx"]["within"], nullptr);
}

TEST_F(BatchCommand, UnusableListOrOutputIsToldAndNothingIsLost) {
    Render("--count 1");
    ASSERT_EQ(Run("batch LIST.csv --out done").nExit, 0);
    const std::string strDone = Read("done"), strHead = "master,slave,calibration\n";
    const std::size_t nExitCode = strDone.find("calibration.bin,0,") + 16;
    Write("altered", std::string(strDone).replace(nExitCode, 1, "1e300"));
    Write("older", std::string(strDone).erase(strDone.find(",warnings"), 9));
    const std::array<std::string, 3> aCases[] = {
        {strHead + "a,b,c\n", "--out missing/r",
         "missing/r: cannot be written (No such file or directory).\n  Create its folder"},
        {strHead + "a,b,c\n", "--out /dev/full --overwrite", "No space left"},
        {strHead + "a,b,c\n", "--out L --overwrite", "is the list itself"},
        {strHead + "a,b,c\n", "--out r --summary L", "is the list itself"},
        {strHead + "a,b,c\n", "--out r --summary ./r", "is named for the rows and for the summary"},
        {strHead + "a,0001/slave.pgm,c\n", "--out 0001/slave.pgm --overwrite", "is an input that the list"},
        {strHead + "a,b,c\n", "--out done", "exists already"},
        {strHead + "a,b,c\n", "--out done --resume", "belongs to another list"},
        {strHead + "a,b,c\n", "--out done --resume --format jsonl", "does not begin as a batch's results"},
        {strHead + "a,b,c\n", "--out older --resume", "results of this list, from this version"},
        {strHead + "a,b,c\n", "--out altered --resume", "does not hold a batch's results in row 1"},
        {strHead + "a,b,c\n", "--out 0001/master.pgm --resume", "does not begin as a batch's results"},
        {strHead + "a,b,c\n", "--repeatability", "no column \"id\""},
    };
    for (const auto& [strList, strArguments, strTold] : aCases) {
        Write("L", strList);
        ExpectRefused(3, {"batch L " + strArguments, {strTold}});
        EXPECT_EQ(Read("L"), strList);
    }
    EXPECT_FALSE(std::filesystem::exists(m_tFolder / "r"));
    EXPECT_EQ(Read("done"), strDone);
    EXPECT_EQ(Run("batch LIST.csv --out done --resume").strErr, "");
    EXPECT_EQ(Read("done"), strDone);
    EXPECT_EQ(Run("batch LIST.csv --out new --resume").strErr,
              "orvex-align: new: no such file yet; starting with the first row.\n");
    EXPECT_EQ(Read("new"), strDone);
}

} // namespace program

#include "support/program.h"

#include <fstream>

namespace program {

using Product = Program;

// What is measured with a whole file of defaults is what is measured without: the stages run by themselves
// are the entry's.
TEST_F(Product, FileOfDefaultsChangesNothing) {
    Render("--rx 0.5 --ry -0.7 --rz 0.4 --noise 2");
    const Outcome t = Run("parameters --json");
    Write("whole.json", "// all of it\n" + t.strOut);
    Json tWithout = MeasureAsJson("master.pgm slave.pgm"),
         tWith = MeasureAsJson("master.pgm slave.pgm", "--product whole.json");
    EXPECT_EQ(tWith["product"], Json::parse(R"({"file": "whole.json", "changed_parameters": []})"));
    for (Json* const p : {&tWithout, &tWith})
        for (const char* const szKey : {"product", "diagnostics"}) // the entry greets
            p->erase(szKey);
    EXPECT_EQ(tWith, tWithout);
    EXPECT_EQ(Run("parameters --json --product whole.json").strOut, t.strOut);
    EXPECT_EQ(
        Run("measure master.pgm slave.pgm --product whole.json --calibration calibration.bin --record r")
            .nExit,
        0);
}

TEST_F(Product, ItsValuesMeasureJudgeAndAreTold) {
    Render("--rx 0.5 --noise 1");
    Write("tight.json", R"({"parameters": {"nFrameOffsetY_Master": 190},
        "limits": {"rescaled_limit_deg": 0.4, "noise_grey": 0.5}})");
    const Json t = MeasureAsJson("master.pgm slave.pgm", "--product tight.json");
    EXPECT_EQ(t["verdict"], "out_of_range");
    EXPECT_EQ(t["raw_limit_deg"], 0.4);
    EXPECT_EQ(t["trust_limits"]["noise_grey"], 0.5);
    EXPECT_EQ(t["warning_details"][0]["kind"], "much_noise");
    EXPECT_EQ(t["product"]["changed_parameters"], Json({"nFrameOffsetY_Master"}));
    const double dMargin = t["trust"]["master"]["frame_start_margin_px"];
    EXPECT_EQ(dMargin - 10,
              MeasureAsJson("master.pgm slave.pgm")["trust"]["master"]["frame_start_margin_px"]);
    EXPECT_TRUE(Holds(Measure("master.pgm slave.pgm", "--product tight.json").strOut,
                      {"tight.json, not as the phone measures: nFrameOffsetY_Master", "OUT OF RANGE: Rx 0.4",
                       "degrees raw", "-0.4 to 0.4 raw"}));
    Write("list.csv", "master,slave\nmaster.pgm,slave.pgm\n");
    EXPECT_TRUE(Holds(Run("batch list.csv --format jsonl --product tight.json 2>&1").strOut,
                      {"tight.json\"", "start of the frame's search to the frame"}));
    ExpectRefused(
        3, {"measure master.pgm slave.pgm --product tight.json --calibration calibration.bin --record r",
            {"r: is not written: tight.json changes the library's parameters (nFrameOffsetY_Master)"}});
    Run("batch list.csv --out rows.csv");
    ExpectRefused(3, {"batch list.csv --product tight.json --out rows.csv --resume",
                      {"its row 1 was measured without --product"}});
    ExpectRefused(
        3, {"batch list.csv --product tight.json --out tight.json --overwrite", {"is the product's file"}});
    Write("small.json", R"({"parameters": {"nWidth": 1000}})");
    ExpectRefused(3, {"measure master.pgm slave.pgm --product small.json",
                      {"master.pgm: is 1728 x 972 px, but small.json says 1000 x 972 px for the master"}});
}

TEST_F(Product, UnfitFileIsToldByLineNameAndRange) {
    const std::string strNotJson = "is not JSON";
    const std::pair<std::string, std::vector<std::string>> aFiles[] = {
        {R"({"parameters": {"nWidth": 0}})",
         {"bad.json: line 1: \"parameters/nWidth\" is 0; allowed is whole, 1 to 65535"}},
        {R"({"parameters": {"nWidth": 1.5}})", {"is 1.5; allowed is whole"}},
        {R"({"parameters": {"nWidth": 1e30}})", {"is 1e+30; allowed is whole"}},
        {R"({"parameters": {"nWidth": 1e400}})", {"\"parameters/nWidth\" holds a number that is too large"}},
        {R"({"parameters": {"nWidth": "1728"}})", {"is \"1728\"; allowed is whole"}},
        {R"({"parameters": {"nWidth": true}})", {"is true; allowed is whole"}},
        {R"({"parameters": {"nWidth": null}})", {"is null; allowed is whole"}},
        {R"({"parameters": {"nWidth": [1728]}})", {"is a list; allowed is whole"}},
        {R"({"parameters": {"bShiftAlongY": 1}})", {"is 1; allowed is true or false"}},
        {R"({"parameters": {"nWidht": 1728}})", {"\"parameters/nWidht\" is not known", "It may be nWidth;"}},
        {R"({"parametres": {"nWidth": 1728}})", {"\"parametres\" is not known", "It may be parameters;"}},
        {R"({"limits": {"frame_width_px": 900}})", {"\"limits/frame_width_px\" is not known"}},
        {"{\n // a\n /* b\n */ \"limits\": {\n\"max_difference_deg\": -1}}",
         {"line 5: ", "is -1; allowed is 0.001 to 90"}},
        {R"({"parameters": {"nWidth": {"unit": "px"}}})", {"\"parameters/nWidth\" holds no \"value\""}},
        {R"({"parameters": {"nWidth": {"value": 5, "colour": 3}}})",
         {"\"parameters/nWidth/colour\" is not known"}},
        {R"({"parameters": {"nWidth": {"value": {"value": 5}}}})",
         {"\"parameters/nWidth/value\" is an object"}},
        {"{\"parameters\": {\"nWidth\": 5,\n\"nWidth\": 5}}",
         {"line 2: \"parameters/nWidth\" stands there twice"}},
        {R"({"parameters": {}, "parameters": {}})", {"\"parameters\" stands there twice"}},
        {R"({"parameters": 5})", {"\"parameters\" is 5; allowed is an object"}},
        {R"({"parameters": {"nWidth": 60000, "nHeight": 60000}})",
         {"60000 x 60000 px are more than 100000000"}},
        {R"({"parameters": {")" + std::string(900000, 'x') + R"(": 1}})", {"xxx...\" is not known"}},
        {std::string("{}\0{", 4), {"holds a zero byte"}},
        {"[1]", {"is a list; allowed is an object"}},
        {"{\"parameters\": {\n\"a\\u001b\\n\": 5}}", {"line 2: \"parameters/a??\" is not known"}},
        {"", {"line 1: " + strNotJson}},
        {"{\"parameters\": {\"nWidth\": 5}\n", {"line 2: " + strNotJson}},
        {"{\n\"parameters\": {\"nWidth\": 5,}}", {"line 2: " + strNotJson}},
        {"{} {}", {strNotJson}},
        {"\xFF\xFE{", {strNotJson}},
    };
    for (const auto& [strText, aTold] : aFiles) {
        Write("bad.json", strText);
        ExpectRefused(3, {"parameters --product bad.json", aTold});
    }
    Render();
    for (const char* const szCommand :
         {"measure master.pgm slave.pgm", "batch list.csv", "render --out x", "chart --out x.svg"})
        ExpectRefused(3,
                      {szCommand + std::string(" --product bad.json"), {"bad.json: line 1: " + strNotJson}},
                      "printf 'master,slave\\nmaster.pgm,slave.pgm\\n' >list.csv");
}

// The table of docs/parameters.md is that of the program.
TEST_F(Product, DocumentTellsAllOfThem) {
    std::ifstream tFile(ORVEX_DOCS "/parameters.md");
    const std::string strDocument(std::istreambuf_iterator<char>(tFile), {});
    const Json tSections = Json::parse(Run("parameters --json").strOut);
    std::size_t nRows = 0;
    for (const auto& [strSection, tValues] : tSections.items())
        for (const auto& [strName, t] : tValues.items()) {
            ++nRows;
            const std::string strRow = "| `" + strName + "` | " + t["default"].dump() + " | " +
                                       t["unit"].get<std::string>() + " | " + t["range"].get<std::string>() +
                                       " | " + t["meaning"].get<std::string>() + " | " +
                                       t["read_by"].get<std::string>() + " |\n";
            EXPECT_NE(strDocument.find(strRow), strDocument.npos) << strRow;
        }
    for (std::size_t n = 0; (n = strDocument.find("\n| `", n)) != strDocument.npos; ++n)
        --nRows;
    EXPECT_EQ(nRows, 0u) << "rows of what is no longer there";
}

} // namespace program

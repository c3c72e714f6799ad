#ifndef ORVEX_TESTS_TOOLS_PROGRAM_H
#define ORVEX_TESTS_TOOLS_PROGRAM_H

#include "support/plane.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace program {

using Json = nlohmann::json;

struct Outcome {
    int nExit;
    std::string strOut;
    std::string strErr;
};

// Runs the program as people do, through the shell, in a fresh folder of its own.
class Program : public testing::Test {
protected:
    Program();
    ~Program() override;

    // strArguments as typed, with redirections if need be; strBefore: shell commands that set the scene.
    Outcome Run(const std::string& strArguments, const std::string& strBefore = ":") const;

    // Renders a pair into the folder strOut; must succeed.
    void Render(const std::string& strOut, const std::string& strOptions = "") const;

    // Measures with the calibration of the pair in "pair".
    Outcome Measure(const std::string& strPictures, const std::string& strOptions = "") const;
    Json MeasureAsJson(const std::string& strPictures, const std::string& strOptions = "") const;

    void Write(const std::string& strFile, const std::string& strBytes) const;
    void Write(const std::string& strFile, const support::Plane& t) const;
    std::string Read(const std::string& strFile) const;
    Json ReadJson(const std::string& strFile) const;
    std::vector<std::string> NamesIn(const std::string& strFolder) const; // in order
    std::filesystem::path Path(const std::string& strName) const { return m_tFolder / strName; }

private:
    std::filesystem::path m_tFolder;
};

} // namespace program

#endif

#pragma once

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

struct Refusal {
    std::string strArguments;
    std::vector<std::string> aTold; // parts of the message
};

// Whether the text holds all the parts; tells which one it lacks.
testing::AssertionResult Holds(const std::string& strText, const std::vector<std::string>& aParts);

// Runs the program as people do, through the shell, in a fresh folder of its own.
class Program : public testing::Test {
protected:
    Program();
    ~Program() override { std::filesystem::remove_all(m_tFolder); }

    // strArguments as typed, with redirections if need be; strBefore: shell commands that set the scene.
    Outcome Run(const std::string& strArguments, const std::string& strBefore = ":") const;
    Outcome RunInShell(const std::string& strCommand) const; // any other program
    // What standard error shows on a terminal of 80 columns; must succeed.
    std::string ShownOnTerminal(const std::string& strArguments, const std::string& strBefore) const;
    // Must end with that exit code and with nothing but the message.
    void ExpectRefused(int nExit, const Refusal& t, const std::string& strBefore = ":") const;
    void Render(const std::string& strOptions = "", const std::string& strOut = ".") const; // must succeed
    // Measures with the calibration of the pair rendered here.
    Outcome Measure(const std::string& strPictures, const std::string& strOptions = "") const;
    Json MeasureAsJson(const std::string& strPictures, const std::string& strOptions = "") const;

    void Write(const std::string& strFile, const std::string& strBytes) const;
    std::string Read(const std::string& strFile) const;

    std::filesystem::path m_tFolder;
};

} // namespace program

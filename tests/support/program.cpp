#include "support/program.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace program {

testing::AssertionResult Holds(const std::string& strText, const std::vector<std::string>& aParts) {
    for (const std::string& strPart : aParts)
        if (strText.find(strPart) == std::string::npos)
            return testing::AssertionFailure() << strPart << " is not in " << strText;
    return testing::AssertionSuccess();
}

Program::Program() {
    std::string strName = testing::TempDir() + "orvex-tools-XXXXXX";
    m_tFolder = mkdtemp(strName.data());
}

Outcome Program::Run(const std::string& strArguments, const std::string& strBefore) const {
    return RunInShell(strBefore + "; '" + ORVEX_ALIGN_PROGRAM + "' " + strArguments);
}

Outcome Program::RunInShell(const std::string& strCommand) const {
    const int nStatus =
        std::system(("cd '" + m_tFolder.string() + "'; exec >out 2>err; " + strCommand).c_str());
    return {WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1, Read("out"), Read("err")};
}

std::string Program::ShownOnTerminal(const std::string& strArguments, const std::string& strBefore) const {
    const winsize tSize = {24, 80, 0, 0};
    int nScreen = -1, nTerminal = -1;
    EXPECT_EQ(openpty(&nScreen, &nTerminal, nullptr, nullptr, &tSize), 0);
    EXPECT_EQ(Run(strArguments, strBefore + "; exec 2>" + ttyname(nTerminal)).nExit, 0);
    close(nTerminal);
    std::string str;
    std::array<char, 4096> aChunk; // what has arrived so far; reading fails once all of it is read
    for (ssize_t n = 0; (n = read(nScreen, aChunk.data(), aChunk.size())) > 0;)
        str.append(aChunk.data(), static_cast<std::size_t>(n));
    close(nScreen);
    return str;
}

void Program::ExpectRefused(int nExit, const Refusal& t, const std::string& strBefore) const {
    const Outcome tOutcome = Run(t.strArguments, strBefore);
    EXPECT_EQ(tOutcome.nExit, nExit) << t.strArguments;
    EXPECT_EQ(tOutcome.strOut, "");
    EXPECT_TRUE(Holds(tOutcome.strErr, t.aTold)) << t.strArguments;
}

void Program::Render(const std::string& strOptions, const std::string& strOut) const {
    const Outcome t = Run("render --out " + strOut + " " + strOptions);
    ASSERT_EQ(t.nExit, 0) << t.strErr;
}

Outcome Program::Measure(const std::string& strPictures, const std::string& strOptions) const {
    return Run("measure " + strPictures + " --calibration calibration.bin " + strOptions);
}

Json Program::MeasureAsJson(const std::string& strPictures, const std::string& strOptions) const {
    const Outcome t = Measure(strPictures, "--json " + strOptions);
    EXPECT_EQ(t.strErr, "");
    Json tJson = Json::parse(t.strOut);
    EXPECT_EQ(tJson["exit_code"], t.nExit);
    return tJson;
}

void Program::Write(const std::string& strFile, const std::string& strBytes) const {
    std::ofstream(m_tFolder / strFile, std::ios::binary) << strBytes;
}

std::string Program::Read(const std::string& strFile) const {
    std::ifstream tFile(m_tFolder / strFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(tFile), {}};
}

} // namespace program

#include "tools/program.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace program {

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

void Program::ExpectRefused(int nExit, const Refusal& t, const std::string& strBefore) const {
    const Outcome tOutcome = Run(t.strArguments, strBefore);
    EXPECT_EQ(tOutcome.nExit, nExit) << t.strArguments;
    EXPECT_EQ(tOutcome.strOut, "");
    for (const std::string& strPart : t.aTold)
        EXPECT_NE(tOutcome.strErr.find(strPart), std::string::npos) << strPart << " in " << tOutcome.strErr;
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

#include "tools/program.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace program {

Program::Program() {
    std::string strName = (std::filesystem::temp_directory_path() / "orvex-tools-XXXXXX").string();
    m_tFolder = mkdtemp(strName.data());
}

Program::~Program() {
    std::filesystem::remove_all(m_tFolder);
}

Outcome Program::Run(const std::string& strArguments, const std::string& strBefore) const {
    const std::string strCommand = "cd '" + m_tFolder.string() + "'; exec >out 2>err; " + strBefore + "; '" +
                                   ORVEX_ALIGN_PROGRAM + "' " + strArguments;
    const int nStatus = std::system(strCommand.c_str());
    return {WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1, Read("out"), Read("err")};
}

void Program::Render(const std::string& strOut, const std::string& strOptions) const {
    const Outcome t = Run("render --out " + strOut + " " + strOptions);
    ASSERT_EQ(t.nExit, 0) << t.strErr;
}

Outcome Program::Measure(const std::string& strPictures, const std::string& strOptions) const {
    return Run("measure " + strPictures + " --calibration pair/calibration.bin " + strOptions);
}

Json Program::MeasureAsJson(const std::string& strPictures, const std::string& strOptions) const {
    const Outcome t = Measure(strPictures, "--json " + strOptions);
    EXPECT_EQ(t.strErr, "");
    Json tJson = Json::parse(t.strOut);
    EXPECT_EQ(tJson["exit_code"], t.nExit);
    return tJson;
}

void Program::Write(const std::string& strFile, const std::string& strBytes) const {
    std::ofstream(Path(strFile), std::ios::binary) << strBytes;
}

void Program::Write(const std::string& strFile, const support::Plane& t) const {
    Write(strFile, "P5\n" + std::to_string(t.nColumns) + " " + std::to_string(t.nRows) + "\n255\n" +
                       std::string(t.aPixels.begin(), t.aPixels.end()));
}

std::string Program::Read(const std::string& strFile) const {
    std::ifstream tFile(Path(strFile), std::ios::binary);
    return {std::istreambuf_iterator<char>(tFile), {}};
}

Json Program::ReadJson(const std::string& strFile) const {
    return Json::parse(Read(strFile));
}

std::vector<std::string> Program::NamesIn(const std::string& strFolder) const {
    std::vector<std::string> a;
    for (const auto& t : std::filesystem::directory_iterator(Path(strFolder)))
        a.push_back(t.path().filename());
    std::ranges::sort(a);
    return a;
}

} // namespace program

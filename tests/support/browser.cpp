#include "support/browser.h"

#include <cstdlib>
#include <fstream>

namespace program {
namespace {

const std::string strChromium =
    "timeout 100 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run "
    "--disable-background-networking --disable-component-update --disable-sync --enable-logging=stderr --v=0 "
    "--hide-scrollbars --virtual-time-budget=5000 ";

} // namespace

void InBrowser::SetUp() {
    if (std::system("command -v chromium >/dev/null") != 0)
        GTEST_SKIP() << "chromium is missing; make test-browser installs it";
}

// Nothing but what a machine without desktop makes the browser say of itself may be logged.
std::string InBrowser::Browse(const std::string& strOptions, const std::string& strFile) const {
    const std::string strCommand = "cd '" + m_tFolder.string() + "'; exec >dom 2>log; rm -rf profile; " +
                                   strChromium + "--user-data-dir=profile " + strOptions + " file://$PWD/" +
                                   strFile;
    EXPECT_EQ(std::system(strCommand.c_str()), 0) << Read("log");
    EXPECT_EQ(Read("log").find("CONSOLE"), std::string::npos) << Read("log");
    return Read("dom");
}

Json InBrowser::SeenIn(const std::string& strSize, const std::string& strScript) const {
    const std::string strPage = Read("report.html"), strEnd = "</body>";
    const std::size_t nEnd = strPage.rfind(strEnd);
    std::ifstream tScript(ORVEX_TEST_SCRIPTS "/" + strScript);
    Write("checked.html", strPage.substr(0, nEnd) + "<script>" +
                              std::string(std::istreambuf_iterator<char>(tScript), {}) + "</script>" +
                              strPage.substr(nEnd));
    const std::string strDom = Browse("--dump-dom --window-size=" + strSize, "checked.html"),
                      strTag = "id=\"seen\">";
    const std::size_t nFirst = strDom.rfind(strTag) + strTag.size();
    return Json::parse(strDom.substr(nFirst, strDom.find("</script>", nFirst) - nFirst));
}

void InBrowser::Photograph(const std::string& strName, const std::string& strOptions) const {
    Browse(strOptions + " --screenshot=shot.png", "report.html");
    EXPECT_GT(Read("shot.png").size(), 20000u) << strName;
    std::filesystem::create_directories(ORVEX_SCREENSHOTS);
    std::filesystem::copy_file(m_tFolder / "shot.png",
                               std::filesystem::path(ORVEX_SCREENSHOTS) / (strName + ".png"),
                               std::filesystem::copy_options::overwrite_existing);
}

} // namespace program

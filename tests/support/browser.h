#pragma once

#include "support/program.h"

namespace program {

const std::string strDark = " --blink-settings=preferredColorScheme=0";

// Looks at pages that the program wrote with a real browser.
class InBrowser : public Program {
protected:
    void SetUp() override;

    // What a script, appended to a copy of the page, has seen there.
    Json SeenIn(const std::string& strSize, const std::string& strScript) const;

    // The page report.html; left for people to look at.
    void Photograph(const std::string& strName, const std::string& strOptions) const;

private:
    std::string Browse(const std::string& strOptions, const std::string& strFile) const;
};

} // namespace program

#pragma once

#include "report/report.h"

namespace tools {

// What a report for people holds, whether it is shown as text or as a page.

struct Fact {
    const char* szLabel;
    std::string strText;
    bool bFile; // a name to be copied, not to be broken into lines
};

struct ReportTable {
    std::string strHeading;
    std::vector<std::vector<std::string>> aRows; // the first one heads the columns
};

struct ReportList {
    const char* szHeading;
    std::vector<std::string> aLines;
    bool bWarning = false;
};

// Without what does not apply.
std::vector<Fact> FactsOf(const Report& report);
std::vector<ReportTable> TablesOf(const Report& report);
std::vector<ReportList> ListsOf(const Report& report);

} // namespace tools

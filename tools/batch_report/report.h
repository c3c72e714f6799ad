#pragma once

#include "batch_report/course.h"
#include "batch_report/rows.h"

namespace tools {

// What is shown of a pair besides its row.
struct ShownPair {
    std::string strThumbnail; // both pictures as a URL that carries them itself; empty for none
    bool bReport = false;     // it has a page of its own
};

// All that the page of a batch shows.
struct BatchReport {
    const ReportRows& tRows;
    Grouping tGroups;
    Course tCourse;
    Limits limits;
    std::map<std::size_t, ShownPair> tShown; // by the row's place
    std::string strReports;                  // folder of the pairs' own pages, as a link on this one
};

std::string HtmlOf(const BatchReport& report);

// "out of range", as the page has it everywhere.
std::string NameOf(VerdictKind tVerdict);

// A pair's own page, in the folder of all.
std::string PageName(std::size_t nRow);

} // namespace tools

#pragma once

#include "report/report.h"

namespace tools {

// What a report for people holds, whether it is shown as text or as a page.

// Behind a number that is not within its limit.
constexpr char kBeyond[] = " !";

struct Fact {
    const char* szLabel;
    std::string strText;
    bool bFile;          // a name to be copied, not to be broken into lines
    bool bBrief = false; // also told where there is little room
};

struct ReportTable {
    std::string strHeading;
    std::vector<std::vector<std::string>> aRows; // the first one heads the columns
    bool bBrief = false;                         // its first rows are also shown where there is little room
};

struct ReportList {
    const char* szHeading;
    std::vector<std::string> aLines;
    bool bWarning = false;
};

// What speaks against the pair, or the rest: notes that do not.
std::vector<std::string> TextsOf(const std::vector<Warning>& aWarnings, bool bDoubt);

// Over what speaks against the pair: what it is to the verdict.
const char* DoubtsHeading(const Report& report);

// What to do about a failure, beside what is told of its cause; may be empty.
std::string AdviceOf(const Report& report);

// Without what does not apply.
std::vector<Fact> FactsOf(const Report& report);
std::vector<ReportTable> TablesOf(const Report& report);
std::vector<ReportList> ListsOf(const Report& report);

} // namespace tools

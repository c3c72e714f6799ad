#pragma once

#include "report/tables.h"

#include <string>
#include <vector>

namespace tools {

// What all pages are made of. Texts go in as they are and come out escaped; bodies are HTML.

// strTag with its attributes.
std::string Element(const std::string& strTag, const std::string& strText);

std::string Section(const std::string& strHeading, const std::string& strBody);
std::string HtmlOf(const ReportTable& table);
std::string HtmlOf(const ReportList& list);
std::string ListItems(const std::vector<std::string>& aTexts);

struct PageParts {
    std::string strTitle;
    std::string strLook; // class of its banner
    std::string strBanner, strMain;
    const char* szStyle;  // beside what all pages share
    const char* szScript; // the page is complete without it
};

// One page for a browser that needs nothing else.
std::string HtmlOf(const PageParts& page);

} // namespace tools

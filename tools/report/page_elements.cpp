#include "report/page_elements.h"

#include "measuring/versions.h"
#include "report/html_text.h"
#include "report/page_parts.h"

#include <chrono>
#include <fmt/chrono.h>
#include <fmt/format.h>

namespace tools {
namespace {

std::string Row(const std::vector<std::string>& aCells, const char* szTag) {
    std::string str = "<tr>" + Element("th", aCells.front());
    for (std::size_t i = 1; i < aCells.size(); ++i)
        str += Element(aCells[i].ends_with(kBeyond) ? "td class=\"beyond\"" : szTag, aCells[i]);
    return str + "</tr>\n";
}

// The policy lets a browser load nothing from anywhere.
std::string Head(const PageParts& page) {
    return std::string("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
                       "img-src data:; style-src 'unsafe-inline'; script-src 'unsafe-inline'\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n") +
           Element("title", page.strTitle) + "\n<style>" + kPageStyle + page.szStyle + "</style>\n</head>\n";
}

} // namespace

std::string Element(const std::string& strTag, const std::string& strText) {
    return fmt::format("<{}>{}</{}>", strTag, Escaped(strText), strTag.substr(0, strTag.find(' ')));
}

std::string Section(const std::string& strHeading, const std::string& strBody) {
    return fmt::format("<section>{}{}</section>\n", Element("h2", strHeading), strBody);
}

std::string HtmlOf(const ReportTable& table) {
    std::string str = "<table><thead>" + Row(table.aRows.front(), "th") + "</thead><tbody>\n";
    for (std::size_t i = 1; i < table.aRows.size(); ++i)
        str += Row(table.aRows[i], "td");
    return Section(table.strHeading, str + "</tbody></table>");
}

std::string HtmlOf(const ReportList& list) {
    return Section(list.szHeading, ListItems(list.aLines));
}

std::string ListItems(const std::vector<std::string>& aTexts) {
    std::string str;
    for (const std::string& strText : aTexts)
        str += Element("li", strText);
    return str.empty() ? "" : "<ul>" + str + "</ul>";
}

std::string HtmlOf(const PageParts& page) {
    return fmt::format("{}<body>\n<header class=\"{}\">{}</header>\n<main>\n{}</main>\n"
                       "<footer>{:%Y-%m-%d %H:%M:%S} UTC, orvex-align {}, libOrvex_Alignment {}</footer>\n"
                       "<script>{}</script>\n</body>\n</html>\n",
                       Head(page), page.strLook, page.strBanner, page.strMain,
                       fmt::gmtime(std::chrono::system_clock::to_time_t(std::chrono::system_clock::now())),
                       ToolVersion(), Escaped(LibraryVersion()), page.szScript);
}

} // namespace tools

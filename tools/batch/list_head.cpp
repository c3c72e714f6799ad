#include "batch/list_head.h"

#include "basics/list_columns.h"
#include "basics/tool_error.h"
#include "batch/columns.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace tools {

const char kListForm[] =
    "The first line names the columns, apart by commas, semicolons or tabs: master, slave "
    "and, if wanted, id and calibration";

namespace {

// No angle depends on the calibration memory.
constexpr std::array kRequired = {kPairColumns[1], kPairColumns[2]};

// What is the same for names that are.
std::string Folded(std::string_view strName) {
    std::string str;
    for (const char c : strName)
        if (std::string_view(" \t_-").find(c) == std::string_view::npos)
            str += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return str;
}

bool IsAmong(const auto& aNames, std::string_view strName) {
    return std::ranges::any_of(aNames, [=](const auto& strOne) { return IsSameColumn(strOne, strName); });
}

std::string CellOf(const CsvRecord& tRecord, std::size_t nPlace) {
    return nPlace < tRecord.aCells.size() ? tRecord.aCells[nPlace] : "";
}

} // namespace

bool IsSameColumn(std::string_view strOne, std::string_view strOther) {
    return Folded(strOne) == Folded(strOther);
}

ListHead::ListHead(const std::string& strFile, const std::vector<std::string>& aNames)
    : m_nCount(aNames.size()) {
    for (std::size_t i = 0; i < m_nCount; ++i)
        if (const std::string str = Folded(aNames[i]); !str.empty())
            if (const auto [p, bNew] = m_tPlaces.try_emplace(str, i); !bNew)
                throw ToolError(strFile,
                                fmt::format("has a column twice: its columns {} and {} are \"{}\" and \"{}\"",
                                            p->second + 1, i + 1, aNames[p->second], aNames[i]),
                                "Keep one of them; case, blanks, _ and - tell no names apart");
    for (const char* const szName : kRequired)
        if (!Has(szName))
            throw ToolError(strFile,
                            fmt::format("has no column \"{}\"; its columns are \"{}\"", szName,
                                        fmt::join(aNames, "\", \"")),
                            kListForm);
    for (std::size_t i = 0; i < m_nCount; ++i)
        if (!Folded(aNames[i]).empty() && !IsAmong(kPairColumns, aNames[i]) &&
            !IsAmong(kTruthColumns, aNames[i])) {
            m_anFurther.push_back(i);
            m_aFurtherNames.push_back(NameInRows(aNames[i]));
        }
}

std::string ListHead::NameInRows(std::string strName) const {
    if (IsAmong(BatchColumns(), strName))
        do
            strName.insert(0, "list_");
        while (Has(strName));
    return strName;
}

bool ListHead::Has(std::string_view strName) const {
    return m_tPlaces.contains(Folded(strName));
}

std::string ListHead::In(const CsvRecord& tRecord, std::string_view strName) const {
    const auto p = m_tPlaces.find(Folded(strName));
    return p == m_tPlaces.end() ? "" : CellOf(tRecord, p->second);
}

std::vector<std::string> ListHead::FurtherIn(const CsvRecord& tRecord) const {
    std::vector<std::string> a(m_anFurther.size());
    std::ranges::transform(m_anFurther, a.begin(), [&](std::size_t n) { return CellOf(tRecord, n); });
    return a;
}

char SeparatorOf(std::string_view strText) {
    const std::size_t nLine = std::min(strText.find_first_not_of("\r\n"), strText.size());
    const std::string_view strLine = strText.substr(0, strText.find('\n', nLine));
    const auto Rank = [&](char c) {
        const std::vector<CsvRecord> aRecords = ParseCsv(strLine, {c, true});
        const auto IsThere = [&](const char* szName) { return IsAmong(aRecords[0].aCells, szName); };
        return aRecords.empty()
                   ? std::pair(false, std::size_t{0})
                   : std::pair(std::ranges::all_of(kRequired, IsThere), aRecords[0].aCells.size());
    };
    return std::ranges::max(std::string_view(",;\t"), {}, Rank);
}

} // namespace tools

#pragma once

#include "basics/csv.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tools {

// Column names are the same whatever their case, blanks, _ and -.
bool IsSameColumn(std::string_view strOne, std::string_view strOther);

// What a list's first line says: the place of each column in its records. One without a name is none:
// programs leave such at a line's end.
class ListHead {
public:
    // Throws ToolError for a column that is there twice, or not at all though no pair can do without.
    ListHead(const std::string& strFile, const std::vector<std::string>& aNames);

    bool Has(std::string_view strName) const;
    std::size_t Count() const { return m_nCount; }

    // Empty where the record ends before it, or the list lacks the column.
    std::string In(const CsvRecord& tRecord, std::string_view strName) const;

    // Those that say nothing of the pair itself, as the rows call them: behind "list_" where they have a
    // column of that name already.
    const std::vector<std::string>& FurtherNames() const { return m_aFurtherNames; }
    std::vector<std::string> FurtherIn(const CsvRecord& tRecord) const;

private:
    std::string NameInRows(std::string strName) const;

    std::size_t m_nCount;
    std::map<std::string, std::size_t> m_tPlaces; // by what is the same for names that are
    std::vector<std::size_t> m_anFurther;
    std::vector<std::string> m_aFurtherNames;
};

// The separator by which the first line names what a list needs, or else the most columns.
char SeparatorOf(std::string_view strText);

// What a list's first line is told to be where it is not.
extern const char kListForm[];

} // namespace tools

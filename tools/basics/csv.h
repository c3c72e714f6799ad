#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tools {

// Tables as RFC 4180 has them: cells apart by commas, quoted where they hold a comma, a quote or a line
// break. People's own have other separators too, and blanks around the cells.
struct CsvForm {
    char cSeparator = ',';
    bool bTrimmed = false; // blanks around a cell or its quotes are no part of it
};

struct CsvRecord {
    std::vector<std::string> aCells;
    std::size_t nLine; // of its first cell, from 1
    std::size_t nEnd;  // offset of the next record
    bool bLineEnded;   // has its line break
    bool bQuoteOpen;   // the text ended inside quotes
};

// Takes line breaks of both kinds and a byte order mark; empty lines are no records.
std::vector<CsvRecord> ParseCsv(std::string_view strText, CsvForm tForm = {});

// One record with its line break.
std::string CsvLine(const std::vector<std::string>& aCells);

} // namespace tools

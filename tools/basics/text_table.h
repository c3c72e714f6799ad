#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tools {

// A finite number in decimal notation, in whatever language the machine is set to; none for anything else.
std::optional<double> ParsedNumber(const std::string& str);

// With a fixed number of decimals; a value that rounds to zero has no sign.
std::string Fixed(double d, int nDecimals);

// "left, top"; before the last one szLast.
std::string Listed(const std::vector<std::string>& a, const char* szLast = ", ");

// What the next three return is harmless, whatever names went in; a heading is the caller's.

// Breaks a text that starts in column nIndent into lines that do so, too, and end before column 100.
std::string Wrapped(const std::string& str, std::size_t nIndent);

// A heading and its lines, each wrapped; nothing if there is no line.
std::string List(const std::string& strHeading, const std::vector<std::string>& aLines);

// Rows of as many cells; each column as wide as its widest cell, the first one flush left, the others right.
std::string Table(std::vector<std::vector<std::string>> aRows);

} // namespace tools

#pragma once

#include <istream>
#include <map>
#include <string>
#include <vector>

namespace compare {

constexpr unsigned int nRenderedPairs = 110;

// What two sequences of the lines of bit_lines.h have in common. A difference names case, field and both
// values, the first one's before "against".
struct Comparison {
    std::map<std::string, std::size_t> aCounts; // of the cases, by what they were and how they ended
    std::size_t nBytes = 0;
    std::vector<std::string> aDifferences;
    std::vector<std::string> aLastPlaces; // where the C library's atan differs, and what that did to angles
};

// Fewer than nLeastRendered rendered pairs are a difference too: what is not compared shows nothing.
Comparison Compare(std::istream& tOne, std::istream& tOther, std::size_t nLeastRendered = nRenderedPairs);

} // namespace compare

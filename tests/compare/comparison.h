#ifndef ORVEX_TESTS_COMPARE_COMPARISON_H
#define ORVEX_TESTS_COMPARE_COMPARISON_H

#include <istream>
#include <string>
#include <vector>

namespace compare {

// What two outputs of measured_bits have in common. A difference names pair, field and both values.
struct Comparison {
    std::size_t nPairs = 0;
    std::size_t nBytes = 0;
    std::vector<std::string> aDifferences;
    std::vector<std::string> aLastPlaces; // angles that differ by one unit in the last place
};

Comparison Compare(std::istream& tOne, std::istream& tOther);

} // namespace compare

#endif

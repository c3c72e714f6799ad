// Compares two outputs of measured_bits and ends with 1 if one bit differs.
#include "compare/comparison.h"

#include <cstdio>
#include <fstream>

int main(int nArguments, char** pszArguments) {
    if (nArguments != 3) {
        std::fputs("compare_bits ONE OTHER\n", stderr);
        return 64;
    }
    std::ifstream tOne(pszArguments[1]), tOther(pszArguments[2]);
    const compare::Comparison t = compare::Compare(tOne, tOther);
    std::printf("%s against %s: %zu pairs, %zu bytes, %zu differences, %zu angles apart by one unit in the "
                "last place\n",
                pszArguments[1], pszArguments[2], t.nPairs, t.nBytes, t.aDifferences.size(),
                t.aLastPlaces.size());
    for (const std::string& str : t.aLastPlaces)
        std::printf("  last place: %s\n", str.c_str());
    for (const std::string& str : t.aDifferences)
        std::printf("  DIFFERENT: %s\n", str.c_str());
    return t.aDifferences.empty() ? 0 : 1;
}

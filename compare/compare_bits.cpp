// Compares two outputs of measured_bits and ends with 1 if one bit differs that is not the
// C library's atan's, or if pairs are missing.
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
    std::printf("%s against %s: %zu bytes, %zu differences, %zu values apart by the C library's atan\n ",
                pszArguments[1], pszArguments[2], t.nBytes, t.aDifferences.size(), t.aLastPlaces.size());
    for (const auto& [strWhat, n] : t.aCounts)
        std::printf(" %s pairs: %zu", strWhat.c_str(), n);
    std::printf("\n");
    for (const std::string& str : t.aLastPlaces)
        std::printf("  the C library's atan differs: %s\n", str.c_str());
    for (const std::string& str : t.aDifferences)
        std::printf("  DIFFERENT: %s\n", str.c_str());
    return t.aDifferences.empty() ? 0 : 1;
}

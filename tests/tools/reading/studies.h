#pragma once

#include <array>
#include <cmath>
#include <map>
#include <span>
#include <utility>

namespace reading {

// Of many second readings.
struct Errors {
    int nCount = 0, nHeld = 0;
    double dSquares = 0, dScaledSquares = 0;

    void Add(double dError, double dVariance) {
        ++nCount;
        nHeld += std::fabs(dError) <= 1.96 * std::sqrt(dVariance) ? 1 : 0;
        dSquares += dError * dError;
        dScaledSquares += dError * dError / dVariance;
    }
    double Held() const { return 100.0 * nHeld / nCount; } // by the 95 % interval, percent
    double Rms() const { return std::sqrt(dSquares / nCount); }
    double ScaledRms() const { return std::sqrt(dScaledSquares / nCount); } // standard uncertainties
};

using AngleErrors = std::array<Errors, 4>; // about x, y and z, and of all three

// Of the pairs whose first result misses the truth by much or little.
struct Judged {
    int nPairs = 0, nDoubted = 0;
};

struct Findings {
    AngleErrors aAll;
    std::map<std::pair<double, double>, AngleErrors> aCells; // by noise and blur
    double dMilliseconds = 0;                                // of processor time a pair
    int nRead = 0;
    Judged tRight, tBetween, tWrong; // by at most 0.02 degrees, and by more than 0.05
};

// Tells of each right pair without dirt that is doubted, and of each wrong one that is not.
Findings Study(std::span<const unsigned int> anPairs, bool bDirt);

// Whole studies, which print what they find. Whether it is good enough.
bool StudyClean(unsigned int nFirst, unsigned int nPairs);
bool StudyDirt(unsigned int nFirst, unsigned int nPairs);

} // namespace reading

#include "tools/reading/studies.h"

#include "tools/reading/pairs.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <map>

using namespace tools;

namespace reading {
namespace {

constexpr double kTwoSided95 = 1.96; // standard uncertainties

// Errors of many second readings of one angle.
struct Errors {
    int nCount = 0, nCovered = 0;
    double dSquares = 0;

    void Add(double dError, double dVariance) {
        ++nCount;
        nCovered += std::fabs(dError) <= kTwoSided95 * std::sqrt(dVariance) ? 1 : 0;
        dSquares += dError * dError;
    }
    double Covered() const { return 100.0 * nCovered / nCount; }
    double Rms() const { return std::sqrt(dSquares / nCount); }
};

using ThreeErrors = std::array<Errors, 3>;

void Add(const UncertainAngles& t, const Angles& tTrue, ThreeErrors& errors) {
    const std::array adTrue = {tTrue.dRx, tTrue.dRy, tTrue.dRz};
    for (std::size_t n = 0; n < 3; ++n)
        errors[n].Add(t.aRaw[n].dValue - adTrue[n], t.aRaw[n].dVariance);
}

double CoveredOfAll(const ThreeErrors& a) {
    return (a[0].Covered() + a[1].Covered() + a[2].Covered()) / 3;
}

bool Lies(double d, double dFirst, double dLast) {
    return d >= dFirst && d <= dLast;
}

std::string Joined(const std::vector<std::string>& a) {
    std::string str;
    for (const std::string& strPart : a)
        str += " " + strPart;
    return str;
}

bool Said(bool bGood, const std::string& strWhat) {
    fmt::print("{}: {}\n", bGood ? "good" : "NOT GOOD", strWhat);
    return bGood;
}

} // namespace

int StudyClean(unsigned int nFirst, unsigned int nPairs) {
    std::map<std::pair<double, double>, ThreeErrors> aCells; // by noise and blur
    ThreeErrors aAll;
    int nUnread = 0, nRight = 0, nDoubted = 0;
    double dMilliseconds = 0;
    for (unsigned int n = nFirst; n < nFirst + nPairs; ++n) {
        const StudyPair tPair = PairOf(n, false);
        const StudyResult tResult = ResultOf(tPair);
        dMilliseconds += tResult.dMilliseconds;
        if (!tResult.tFirst.oSecondAngles) {
            ++nUnread;
            continue;
        }
        Add(*tResult.tFirst.oSecondAngles, tPair.tTrue, aCells[{tPair.dNoise, tPair.dBlur}]);
        Add(*tResult.tFirst.oSecondAngles, tPair.tTrue, aAll);
        if (ErrorOfFirst(tResult, tPair.tTrue).value_or(1) > 0.02)
            continue;
        ++nRight;
        const std::vector<std::string> aDoubts = tResult.aDoubts;
        nDoubted += aDoubts.empty() ? 0 : 1;
        if (!aDoubts.empty())
            fmt::print("pair {} is doubted:{}\n", n, Joined(aDoubts));
    }
    fmt::print("| noise | blur | pairs | RMS Rx | RMS Ry | RMS Rz | Rx in 95 % | Ry | Rz | all "
               "|\n|---|---|---|---|---|---|---|---|---|---|\n");
    bool bCells = true, bSharp = true;
    for (const auto& [tCell, a] : aCells) {
        fmt::print("| {} | {} | {} | {:.5f} | {:.5f} | {:.5f} | {:.1f} | {:.1f} | {:.1f} | {:.1f} |\n",
                   tCell.first, tCell.second, a[0].nCount, a[0].Rms(), a[1].Rms(), a[2].Rms(), a[0].Covered(),
                   a[1].Covered(), a[2].Covered(), CoveredOfAll(a));
        bCells = bCells && Lies(CoveredOfAll(a), 90, 98.5);
        if (tCell == std::pair(2.0, 0.8))
            bSharp = a[0].Rms() <= 0.0015 && a[1].Rms() <= 0.0015 && a[2].Rms() <= 0.001;
    }
    const double dMean = dMilliseconds / nPairs;
    const std::array abGood = {
        Said(nUnread == 0, fmt::format("{} of {} pairs are not read", nUnread, nPairs)),
        Said(bSharp, "RMS at noise 2, blur 0.8: at most 0.0015, 0.0015, 0.001 degrees"),
        Said(bCells, "in every cell 90 to 98.5 % lie in the 95 % interval"),
        Said(Lies(aAll[0].Covered(), 93, 97) && Lies(aAll[1].Covered(), 93, 97) &&
                 Lies(aAll[2].Covered(), 93, 97),
             fmt::format("in all {:.1f}, {:.1f} and {:.1f} %", aAll[0].Covered(), aAll[1].Covered(),
                         aAll[2].Covered())),
        Said(100 * nDoubted <= nRight,
             fmt::format("{} of {} that were measured within 0.02 degrees are doubted", nDoubted, nRight))};
    fmt::print("{:.2f} ms of processor time a pair\n", dMean);
    return std::ranges::find(abGood, false) == abGood.end() ? 0 : 1;
}

int StudyDirt(unsigned int nFirst, unsigned int nPairs) {
    int nMeasured = 0, nWrong = 0, nEscaped = 0, nRight = 0, nDoubted = 0;
    std::map<std::string, int> anDoubts;
    for (unsigned int n = nFirst; n < nFirst + nPairs; ++n) {
        const StudyPair tPair = PairOf(n, true);
        const StudyResult tResult = ResultOf(tPair);
        const std::optional<double> oError = ErrorOfFirst(tResult, tPair.tTrue);
        if (!oError)
            continue;
        ++nMeasured;
        const std::vector<std::string> aDoubts = tResult.aDoubts;
        const bool bWrong = *oError > 0.05;
        (bWrong ? nWrong : nRight) += 1;
        if (!bWrong) {
            nDoubted += aDoubts.empty() ? 0 : 1;
            continue;
        }
        for (const std::string& str : aDoubts)
            ++anDoubts[str];
        if (aDoubts.empty()) {
            ++nEscaped;
            fmt::print("pair {} escaped with an error of {:.3f} degrees\n", n, *oError);
        }
    }
    for (const auto& [str, nTimes] : anDoubts)
        fmt::print("{}: {}\n", str, nTimes);
    fmt::print("{} of {} pairs were measured; of {} right ones {} are doubted\n", nMeasured, nPairs, nRight,
               nDoubted);
    return Said(nEscaped == 0 && nWrong > 0,
                fmt::format("{} of {} that are wrong by more than 0.05 degrees are not doubted", nEscaped,
                            nWrong))
               ? 0
               : 1;
}

} // namespace reading

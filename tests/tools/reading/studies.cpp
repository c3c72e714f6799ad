#include "tools/reading/studies.h"

#include "tools/reading/pairs.h"

#include <fmt/format.h>
#include <numeric>

namespace reading {
namespace {

std::vector<unsigned int> Numbers(unsigned int nFirst, unsigned int nPairs) {
    std::vector<unsigned int> an(nPairs);
    std::iota(an.begin(), an.end(), nFirst);
    return an;
}

void Add(const tools::UncertainAngles& t, const StudyPair& tPair, AngleErrors& errors) {
    for (std::size_t n = 0; n < 3; ++n)
        for (Errors* const p : {&errors[n], &errors[3]})
            p->Add(t.aRaw[n].dValue - tPair.adTrue[n], t.aRaw[n].dVariance);
}

void PrintRow(const std::string& strNoise, const std::string& strBlur, const AngleErrors& a) {
    fmt::print("| {} | {} | {} |", strNoise, strBlur, a[0].nCount);
    for (std::size_t n = 0; n < 3; ++n)
        fmt::print(" {:.5f} |", a[n].Rms());
    for (const Errors& t : a)
        fmt::print(" {:.1f} |", t.Held());
    fmt::print(" {:.2f} |\n", a[3].ScaledRms());
}

bool Lies(double d, double dFirst, double dLast) {
    return d >= dFirst && d <= dLast;
}

bool Said(bool bGood, const std::string& strWhat) {
    fmt::print("{}: {}\n", bGood ? "good" : "NOT GOOD", strWhat);
    return bGood;
}

} // namespace

Findings Study(std::span<const unsigned int> anPairs, bool bDirt) {
    Findings t;
    for (const unsigned int nPair : anPairs) {
        const StudyPair tPair = PairOf(nPair, bDirt);
        const StudyResult tResult = ResultOf(tPair);
        t.dMilliseconds += tResult.dMilliseconds / static_cast<double>(anPairs.size());
        if (const auto& oSecond = tResult.tFirst.oSecondAngles) {
            ++t.nRead;
            Add(*oSecond, tPair, t.aAll);
            Add(*oSecond, tPair, t.aCells[{tPair.dNoise, tPair.dBlur}]);
        }
        if (!tResult.oErrorOfFirst)
            continue;
        const double dError = *tResult.oErrorOfFirst;
        Judged& judged = dError <= 0.02 ? t.tRight : dError <= 0.05 ? t.tBetween : t.tWrong;
        const bool bDoubted = !tResult.strDoubts.empty();
        ++judged.nPairs;
        judged.nDoubted += bDoubted ? 1 : 0;
        if ((&judged == &t.tRight && bDoubted && !bDirt) || (&judged == &t.tWrong && !bDoubted))
            fmt::print("pair {}: wrong by {:.3f} degrees, doubts:{}\n", nPair, dError, tResult.strDoubts);
    }
    return t;
}

bool StudyClean(unsigned int nFirst, unsigned int nPairs) {
    Findings t = Study(Numbers(nFirst, nPairs), false);
    fmt::print("| noise | blur | pairs | RMS Rx | RMS Ry | RMS Rz | Rx held | Ry | Rz | all | RMS / u |\n"
               "|---|---|---|---|---|---|---|---|---|---|---|\n");
    double dLeast = 100, dMost = 0;
    for (const auto& [tCell, a] : t.aCells) {
        PrintRow(fmt::format("{}", tCell.first), fmt::format("{}", tCell.second), a);
        dLeast = std::min(dLeast, a[3].Held());
        dMost = std::max(dMost, a[3].Held());
    }
    PrintRow("all", "all", t.aAll);
    bool bGood = Said(t.nRead == static_cast<int>(nPairs), fmt::format("{} of {} are read", t.nRead, nPairs));
    for (std::size_t n = 0; n < 3; ++n)
        bGood &= Said(Lies(t.aAll[n].Held(), 93, 97), fmt::format("{:.1f} % held", t.aAll[n].Held()));
    bGood &= Said(dLeast >= 90 && dMost <= 98.5,
                  fmt::format("{:.1f} to {:.1f} % held in each cell", dLeast, dMost));
    const auto [x, y, z, tAll] = t.aCells[{2, 0.8}];
    bGood &= Said(x.Rms() <= 0.0015 && y.Rms() <= 0.0015 && z.Rms() <= 0.001, "RMS at noise 2, blur 0.8");
    bGood &= Said(100 * t.tRight.nDoubted <= t.tRight.nPairs,
                  fmt::format("{} of {} right ones doubted", t.tRight.nDoubted, t.tRight.nPairs));
    return Said(t.dMilliseconds <= 3, fmt::format("{:.2f} ms of processor time a pair", t.dMilliseconds)) &&
           bGood;
}

bool StudyDirt(unsigned int nFirst, unsigned int nPairs) {
    const Findings t = Study(Numbers(nFirst, nPairs), true);
    fmt::print("| off by, degrees | measured pairs | doubted |\n|---|---|---|\n");
    const auto Print = [](const char* szError, const Judged& tJudged) {
        fmt::print("| {} | {} | {} |\n", szError, tJudged.nPairs, tJudged.nDoubted);
    };
    Print("at most 0.02", t.tRight);
    Print("0.02 to 0.05", t.tBetween);
    Print("more than 0.05", t.tWrong);
    return Said(t.tWrong.nPairs > 0 && t.tWrong.nDoubted == t.tWrong.nPairs,
                fmt::format("{} wrong ones of {} pairs escape", t.tWrong.nPairs - t.tWrong.nDoubted, nPairs));
}

} // namespace reading

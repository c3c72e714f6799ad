#include "support/program.h"

#include <cmath>
#include <cstdio>

namespace program {
namespace {

constexpr double kMmPerDot = 25.4 / 600;

// A page of 600 dots per inch. Positions are in mm from its middle, x to the right, y down.
class Paper {
public:
    explicit Paper(std::string strPgm) : m_strPgm(std::move(strPgm)) {
        int nGreys = 0;
        EXPECT_EQ(std::sscanf(m_strPgm.c_str(), "P5 %d %d %d", &m_nWidth, &m_nHeight, &nGreys), 3);
    }
    double Width() const { return m_nWidth * kMmPerDot; }
    double Height() const { return m_nHeight * kMmPerDot; }

    // Where ink begins and ends on the line y = dAt, or x = dAt, as far as dFar to both sides of the middle.
    std::vector<double> Edges(bool bAlongX, double dAt, double dFar) const {
        const int nAt = Dot(dAt, bAlongX ? m_nHeight : m_nWidth), nLength = bAlongX ? m_nWidth : m_nHeight;
        std::vector<double> a;
        for (int n = Dot(-dFar, nLength); n < Dot(dFar, nLength); ++n)
            if (bAlongX ? IsInk(n, nAt) != IsInk(n - 1, nAt) : IsInk(nAt, n) != IsInk(nAt, n - 1))
                a.push_back((n - nLength / 2.0) * kMmPerDot);
        return a;
    }

private:
    static int Dot(double dMm, int nLength) {
        return static_cast<int>(std::floor(dMm / kMmPerDot + nLength / 2.0));
    }
    bool IsInk(int x, int y) const {
        const std::size_t nBehind =
            static_cast<std::size_t>(m_nHeight - y) * static_cast<std::size_t>(m_nWidth);
        return static_cast<unsigned char>(
                   m_strPgm.at(m_strPgm.size() - nBehind + static_cast<std::size_t>(x))) < 128;
    }

    std::string m_strPgm;
    int m_nWidth = 0, m_nHeight = 0;
};

// Chart units but for the place, which is mm farther.
struct Line {
    bool bAlongX;
    double dAt, dFartherMm;
    std::vector<double> aEdges; // those to the right of the middle, or below; as many lie opposite
};

const Line aLines[] = {
    {true, 30, 0, {2, 184.75, 188.75}},     {true, 0, 0, {105, 184.75, 188.75}},
    {false, -30, 0, {2, 100.75, 104.75}},   {false, 0, 0, {55, 100.75, 104.75}},
    {true, 112.75, 2, {188.75, 188.75}},    {true, -112.75, -2, {105, 105}}, // the dimension lines' ends
    {false, -196.75, -2, {104.75, 104.75}}, {false, 196.75, 2, {55, 55}},
};

void ExpectAtScale(const Paper& page, double dUnitMm) {
    for (const Line& line : aLines) {
        const std::vector<double> a = page.Edges(line.bAlongX, line.dAt * dUnitMm + line.dFartherMm,
                                                 (line.bAlongX ? 190 : 106) * dUnitMm);
        const std::size_t nHalf = line.aEdges.size();
        ASSERT_EQ(a.size(), 2 * nHalf) << line.dAt;
        for (std::size_t i = 0; i < nHalf; ++i) {
            EXPECT_NEAR(a[nHalf + i], line.aEdges[i] * dUnitMm, 0.1) << line.dAt;
            EXPECT_NEAR(a[nHalf - 1 - i], -line.aEdges[i] * dUnitMm, 0.1) << line.dAt;
        }
    }
}

} // namespace

using ChartCommand = Program;

TEST_F(ChartCommand, PrintedPageHasTheChartsDimensions) {
    struct Case {
        const char *szFile, *szOptions;
        double dUnitMm, dWidth, dHeight;
        const char* szTold;
    };
    const Case aCases[] = {
        {"whole.pdf", "", 1, 420, 297, "420.0 x 297.0 mm, to be seen from 600.0 mm"},
        {"whole.svg", "--page 430x303.5", 1, 430, 303.5, "430.0 x 303.5 mm"},
        {"small.pdf", "--unit-mm 0.6", 0.6, 297, 210,
         "0.6 mm per chart unit on a page of 297.0 x 210.0 mm, to be seen from 360.0 mm"},
    };
    for (const Case& t : aCases) {
        const std::string strFile = t.szFile, strCommand = "chart --out " + strFile + " " + t.szOptions;
        const Outcome tOutcome = Run(strCommand);
        ASSERT_EQ(tOutcome.nExit, 0) << tOutcome.strErr;
        EXPECT_TRUE(Holds(tOutcome.strOut, {strFile, t.szTold}));
        EXPECT_EQ(Run(strCommand).nExit, 0) << "other bytes: " << strFile;
        ASSERT_EQ(RunInShell("mutool draw -q -r 600 -c gray -F pgm -o page.pgm " + strFile).nExit, 0);
        const Paper page(Read("page.pgm"));
        EXPECT_NEAR(page.Width(), t.dWidth, 0.1);
        EXPECT_NEAR(page.Height(), t.dHeight, 0.1);
        ExpectAtScale(page, t.dUnitMm);
    }
    EXPECT_EQ(Read("whole.pdf").find("CreationDate"), std::string::npos); // would be other bytes tomorrow
}

TEST_F(ChartCommand, UnfitPageNameOrFileIsRefused) {
    Write("there.pdf", "foreign");
    const std::pair<int, Refusal> aCases[] = {
        {64, {"chart --out chart.png", {"\"chart.png\" does not end with .pdf or .svg"}}},
        {64,
         {"chart --out a.pdf --page A4", {"needs 419.5 x 267.5 mm", "297.0 x 210.0 mm", "at most 0.6886"}}},
        {64,
         {"chart --out a.pdf --unit-mm 4",
          {"needs 1600.0 x 944.0 mm", "1189.0 x 841.0 mm", "at most 2.9555"}}},
        {64, {"chart --out a.pdf --page A9", {"\"A9\" is not A4"}}},
        {64, {"chart --out a.pdf --page 500x", {"\"500x\" is not A4"}}},
        {64, {"chart --out a.pdf --page 500x5001", {"\"500x5001\"", "50 to 5000 mm"}}},
        {64, {"chart --out a.pdf --unit-mm 0", {"--unit-mm"}}},
        {3, {"chart --out missing/a.pdf", {"missing/a.pdf: cannot be written", "Create its folder"}}},
        {3, {"chart --out there.pdf", {"there.pdf: exists already", "--overwrite"}}},
    };
    for (const auto& [nExit, tRefusal] : aCases)
        ExpectRefused(nExit, tRefusal);
    EXPECT_EQ(Read("there.pdf"), "foreign");
    EXPECT_EQ(Run("chart --out there.pdf --overwrite").nExit, 0);
}

} // namespace program

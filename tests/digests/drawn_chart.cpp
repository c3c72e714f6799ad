#include "digests/drawn_chart.h"

#include <cstdint>
#include <cstdlib>

using support::Plane;
using support::Random;

namespace digests {
namespace {

constexpr int nUnit = 256; // parts of a pixel

struct Point {
    int nAlong, nAcross; // in units
};

// A bar that is as thick as nThickness units; its lines are columns if it is horizontal, else rows.
void DrawBar(Plane& tPlane, bool bHorizontal, Point tFrom, Point tTo, int nThickness, int nInk) {
    const int nLines = bHorizontal ? tPlane.nColumns : tPlane.nRows;
    const int nLength = bHorizontal ? tPlane.nRows : tPlane.nColumns;
    for (int n = std::max(tFrom.nAlong / nUnit, 0); n <= std::min(tTo.nAlong / nUnit, nLines - 1); ++n) {
        const std::int64_t nRise = tTo.nAcross - tFrom.nAcross;
        const auto nAside = nRise * (n * nUnit - tFrom.nAlong) / std::max(tTo.nAlong - tFrom.nAlong, 1);
        const int nFirst = tFrom.nAcross + static_cast<int>(nAside) - nThickness / 2;
        for (int i = std::max(nFirst / nUnit - 1, 0);
             i <= std::min((nFirst + nThickness) / nUnit + 1, nLength - 1); ++i) {
            const int nPixel = i * nUnit - nUnit / 2;
            const int nCovered = std::min(nFirst + nThickness, nPixel + nUnit) - std::max(nFirst, nPixel);
            unsigned char& ub = bHorizontal ? tPlane.At(n, i) : tPlane.At(i, n);
            if (nCovered > 0)
                ub = static_cast<unsigned char>(ub + (std::min<int>(nInk, ub) - ub) * nCovered / nUnit);
        }
    }
}

void Shade(Plane& tPlane, int nPercent) {
    for (int y = 0; y < tPlane.nRows; ++y)
        for (int x = 0; x < tPlane.nColumns; ++x) {
            const int nAside = std::abs(2 * x - tPlane.nColumns) * nPercent / tPlane.nColumns;
            tPlane.At(x, y) = static_cast<unsigned char>(tPlane.At(x, y) * (100 - nAside) / 100);
        }
}

} // namespace

void AddNoise(Random& t, Plane& tPlane, int nLevel) {
    for (unsigned char& ub : tPlane.aPixels)
        ub =
            static_cast<unsigned char>(std::clamp(ub + t.Int(0, nLevel) + t.Int(0, nLevel) - nLevel, 0, 255));
}

Layout AnyLayout(Random& t) {
    const int nColumns = t.Int(290, 370), nRows = t.Int(270, 330);
    const int anCentre[] = {nColumns / 2 + t.Int(-9, 9), nRows / 2 + t.Int(-9, 9)};
    const int anFrame[] = {t.Int(112, 126), t.Int(104, 116), t.Int(5, 12)},
              anGrey[] = {t.Int(150, 250), t.Int(0, 60)};
    return {nColumns,   nRows,      anCentre[0], anCentre[1], anFrame[0],
            anFrame[1], anFrame[2], anGrey[0],   anGrey[1]};
}

Layout LowLayout(Random& t, bool bMaster) {
    const int nColumns = bMaster ? 440 : t.Int(228, 240);
    const int anCentre[] = {nColumns / 2 + t.Int(-4, 4), 330 + t.Int(-9, 9)};
    const int anFrame[] = {t.Int(94, 100), t.Int(104, 116), t.Int(5, 9)}, nInk = t.Int(20, 50);
    return {nColumns,   bMaster ? 660 : 520, anCentre[0], anCentre[1], anFrame[0],
            anFrame[1], anFrame[2],          200,         nInk};
}

Plane AnyChart(Random& t, const Layout& tLayout) {
    const auto [nColumns, nRows, nCentreX, nCentreY, nHalfWidth, nHalfHeight, nThickness, nPaper,
                nInkOfBars] = tLayout;
    const int nInk = nInkOfBars; // for the lambda
    const auto Near = [&](int n, int nAside) { return n * nUnit + t.Int(-nAside, nAside); };
    const int nLeft = nCentreX - nHalfWidth, nRight = nCentreX + nHalfWidth;
    const int nTop = nCentreY - nHalfHeight, nBottom = nCentreY + nHalfHeight;
    Plane tPlane(nColumns, nRows, static_cast<unsigned char>(nPaper));
    const auto Bar = [&](bool bHorizontal, int nFrom, int nTo, int nAcross, int nThick) {
        const int an[] = {Near(nAcross, 2 * nUnit), Near(nAcross, 2 * nUnit),
                          nThick * nUnit + t.Int(0, nUnit)};
        DrawBar(tPlane, bHorizontal, {nFrom * nUnit, an[0]}, {nTo * nUnit, an[1]}, an[2], nInk);
    };
    for (const int nRow : {nTop, nBottom})
        Bar(true, nLeft - nThickness / 2, nRight + nThickness / 2, nRow, nThickness);
    for (const int nColumn : {nLeft, nRight})
        Bar(false, nTop - nThickness / 2, nBottom + nThickness / 2, nColumn, nThickness);
    const int nCrossThickness = t.Int(4, 14), nReach = t.Int(50, 58);
    Bar(true, nCentreX - nReach, nCentreX + nReach, nCentreY, nCrossThickness);
    Bar(false, nCentreY - nReach, nCentreY + nReach, nCentreX, nCrossThickness);
    const int nCovering = t.Int(0, 5) == 0 ? 1 : 0;
    for (int i = 0; i < nCovering; ++i) {
        const int x = t.Int(-20, nColumns), y = t.Int(-20, nRows);
        const int x2 = x + t.Int(2, 60), y2 = y + t.Int(2, 60);
        tPlane.Fill(x, y, x2, y2, static_cast<unsigned char>(t.Int(0, nPaper)));
    }
    Shade(tPlane, t.Int(0, 1) == 0 ? t.Int(0, 30) : 0);
    AddNoise(t, tPlane, t.Int(0, 4) == 0 ? t.Int(8, 60) : t.Int(0, 8));
    const int nSpecks = t.Int(0, 3) == 0 ? t.Int(0, 400) : 0;
    for (int i = 0; i < nSpecks; ++i) {
        const int x = t.Int(0, nColumns - 1), y = t.Int(0, nRows - 1);
        const int x2 = x + t.Int(0, 2), y2 = y + t.Int(0, 1);
        tPlane.Fill(x, y, x2, y2, static_cast<unsigned char>(t.Int(0, 255)));
    }
    return tPlane;
}

} // namespace digests

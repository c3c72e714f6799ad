// The steps inside the stages, with random arguments in which limits and ties are met again and again.
#include "compare/bit_lines.h"
#include "compare/recorded_atan.h"
#include "core/line_scan.h"
#include "core/to_integer.h"
#include "corners/corner_crossing.h"
#include "corners/dark_count_drop.h"
#include "corners/stripe_centre.h"
#include "digests/cases.h"
#include "digests/drawn_chart.h"
#include "entry/angle_range.h"
#include "entry/autofocus_record.h"
#include "entry/record_key.h"
#include "geometry/bar_line.h"
#include "geometry/crossing.h"
#include "geometry/dark_histograms.h"
#include "image/centre_window.h"
#include "image/edge_scan.h"
#include "image/region_threshold.h"

#include <array>
#include <cmath>
#include <cstring>

using compare::BitLines;
using namespace orvex;
using support::Plane;
using support::Random;

namespace digests {
namespace {

constexpr int nCalls = 50; // whose results stand in one line
constexpr int nNone = -77;

// One line of the results of many calls. Each adds its own to a list.
template <typename Value, typename Step>
void WriteCalls(std::ostream& tOut, const std::string& strCase, int nLines, Step&& AddResults) {
    const BitLines tLines(tOut, strCase);
    for (int nLine = 0; nLine < nLines; ++nLine) {
        Random t(static_cast<unsigned int>(nLine));
        std::vector<Value> a;
        for (int i = 0; i < nCalls; ++i)
            AddResults(t, &a);
        tLines.Add("results_" + std::to_string(nLine), a);
    }
}

void AddRange(const Range& t, std::vector<int>* pan) {
    pan->insert(pan->end(), {static_cast<int>(t.nFirst), static_cast<int>(t.nLast)});
}

// Lines along which the value steps, comes back or drifts.
std::vector<int> AnyProfile(Random& t, int nLength, int nStep, int nMost) {
    std::vector<int> an;
    int n = t.Int(0, nMost);
    while (static_cast<int>(an.size()) < nLength) {
        const int anMove[] = {t.Int(-1, 1), nStep + t.Int(-2, 2)};
        n = std::clamp(n + anMove[0] * anMove[1], 0, nMost);
        an.insert(an.end(), static_cast<std::size_t>(t.Int(1, 7)), n);
    }
    an.resize(static_cast<std::size_t>(nLength));
    return an;
}

} // namespace

void WriteImage(std::ostream& tOut) {
    const BitLines tLines(tOut, "image/usable_size");
    for (const auto& [nColumns, nRows] : {std::pair{1L, 1L},
                                          {0L, 1L},
                                          {1L, 0L},
                                          {65535L, 32768L},
                                          {32768L, 65535L},
                                          {65536L, 1L},
                                          {1L, 65536L},
                                          {65535L, 32769L},
                                          {49981L, 42966L},
                                          {49981L, 42967L},
                                          {-3L, -3L}})
        tLines.Add(std::to_string(nColumns) + "x" + std::to_string(nRows),
                   IsUsableSize(nColumns, nRows) ? 1 : 0);
    WriteCalls<int>(tOut, "image/line_scan", 3, [](Random& t, std::vector<int>* pan) {
        const int nFirst = t.Int(-1, 3);
        const LineScan tScan = {
            t.Int(0, 1) == 0, {nFirst, nFirst + t.Int(0, 4)}, t.Int(-1, 8), t.Int(-1, 8), t.Int(0, 1) == 0};
        const auto o = BoundsInside({t.Int(3, 8), t.Int(3, 8)}, tScan);
        pan->insert(pan->end(),
                    {o ? o->nX1 : nNone, o ? o->nY1 : nNone, o ? o->nX2 : nNone, o ? o->nY2 : nNone});
    });
    WriteCalls<int>(tOut, "image/edge_scan", 6, [](Random& t, std::vector<int>* pan) {
        const bool bRowLines = t.Int(0, 1) == 0;
        const std::vector<int> an = AnyProfile(t, 24, 9, 60);
        Plane tPlane(bRowLines ? 7 : 24, bRowLines ? 24 : 7, 0);
        for (int n = 0; n < 24; ++n)
            for (int i = 0; i < 7; ++i)
                (bRowLines ? tPlane.At(i, n) : tPlane.At(n, i)) =
                    static_cast<unsigned char>(an[static_cast<std::size_t>(n)] + t.Int(0, 9) / 9);
        const int nStart = t.Int(0, 23), nTarget = t.Int(0, 3) == 0 ? t.Int(0, 23) : t.Int(0, 1) * 24;
        int nEdge = nNone;
        if (nTarget == 24 || nStart != nTarget)
            FindEdgeByLineSum(tPlane.Data(), tPlane.nColumns, bRowLines ? 1 : nStart, bRowLines ? nStart : 1,
                              bRowLines ? 5 : nTarget, bRowLines ? nTarget : 5, bRowLines,
                              t.Int(0, 9) == 0 ? nullptr : &nEdge);
        pan->push_back(nEdge);
    });
    WriteCalls<double>(tOut, "image/region_threshold", 4, [](Random& t, std::vector<double>* pad) {
        Plane tPlane(8, 8, static_cast<unsigned char>(t.Int(100, 140)));
        AddNoise(t, tPlane, t.Int(0, 3) * 20);
        const int nDarkRows = t.Int(0, 8);
        tPlane.Fill(0, 0, 7, nDarkRows - 1, static_cast<unsigned char>(t.Int(0, 70)));
        if (t.Int(0, 4) == 0) // the dark level is just the share of the bright one that is no ink
            for (unsigned char& ub : tPlane.aPixels)
                ub = ub > 90 ? 200 : 90;
        const double adShares[] = {0.0, 0.125, 0.25, 0.5, 0.75, 1.0};
        double d = nNone;
        const int an[] = {t.Int(0, 4), t.Int(0, 4), t.Int(3, 7), t.Int(3, 7)};
        double ad[] = {adShares[t.Int(0, 5)], adShares[t.Int(0, 5)], t.Real(0, 1)};
        if (t.Int(0, 2) == 0) // all but a whole number of pixels, by less than single precision holds
            for (double* const pd : {&ad[0], &ad[1]}) {
                const int anShare[] = {t.Int(0, 20), t.Int(-1, 1)};
                *pd = anShare[0] / ((an[2] - an[0] + 1.0) * (an[3] - an[1] + 1.0)) + anShare[1] * 1e-10;
            }
        CalcRegionThreshold(tPlane.Data(), 8, an[0], an[1], an[2], an[3], ad[0], ad[1], ad[2],
                            t.Int(0, 9) == 0 ? nullptr : &d);
        pad->push_back(d);
    });
    WriteCalls<int>(tOut, "image/centre_window", 3, [](Random& t, std::vector<int>* pan) {
        const PictureSize tSize = {t.Int(1, 400), t.Int(1, 400)};
        // Half of the ratios meet whole pixels, if only almost.
        const bool bWhole = t.Int(0, 1) == 0;
        const WindowRatios tRatios = {bWhole ? 1.0 * t.Int(0, 400) / tSize.nWidth : t.Real(-0.2, 1.5),
                                      bWhole ? 1.0 * t.Int(0, 400) / tSize.nHeight : t.Real(-0.2, 1.5)};
        const unsigned short auw[] = {static_cast<unsigned short>(t.Int(0, 400)),
                                      static_cast<unsigned short>(t.Int(0, 400))};
        const CentreWindow at[] = {
            CoarseWindow(tSize, tRatios, WindowShift{t.Int(-90, 90), t.Int(0, 1) == 0}),
            RefinedWindow(tSize, tRatios, auw)};
        for (const CentreWindow& tWindow : at) {
            AddRange(tWindow.Closed().tColumns, pan);
            AddRange(tWindow.HalfOpen().tRows, pan);
        }
    });
}

void WriteGeometry(std::ostream& tOut) {
    WriteCalls<int>(tOut, "geometry/dense_run", 4, [](Random& t, std::vector<int>* pan) {
        std::vector<double> ad(static_cast<std::size_t>(t.Int(88, 260)), 1.0);
        for (int i = t.Int(8, 13); i > 0; --i) // gaps, about as many as a run may have
            ad[static_cast<std::size_t>(t.Int(0, static_cast<int>(ad.size()) - 1))] = 0.0;
        std::fill_n(ad.begin(), t.Int(0, 20), 0.0);
        std::fill_n(ad.rbegin(), t.Int(0, 20), 0.0);
        pan->insert(pan->end(), {FirstOfDenseRun(ad).value_or(nNone), LastOfDenseRun(ad).value_or(nNone)});
        Range tRun = {nNone, nNone};
        pan->push_back(static_cast<int>(FindBarRun(ad, {1, 2, 3, 4, 5, 6}, &tRun)));
        AddRange(tRun, pan);
    });
    WriteCalls<int>(tOut, "geometry/bar_band", 3, [](Random& t, std::vector<int>* pan) {
        std::vector<double> ad;
        for (int i = t.Int(1, 40); i > 0; --i)
            ad.push_back(t.Int(18, 22));
        const double adPlace[] = {t.Int(0, 1) ? t.Int(-2, 40) : t.Real(-2, 40),
                                  static_cast<double>(t.Int(0, 60))};
        AddRange(FindBarBand(ad, adPlace[0], adPlace[1]), pan);
    });
    // Far pixels keep the centre moving up to the last round, bars over a faint ground let it converge, and a
    // heavy first entry brings it close to the origin.
    WriteCalls<double>(tOut, "geometry/centroid", 9, [](Random& t, std::vector<double>* pad) {
        std::vector<double> aad[2];
        const int nKind = t.Int(0, 2);
        for (std::vector<double>& ad : aad) {
            const double dGround = t.Real(0, 2);
            const int nBar = t.Int(50, 60);
            for (int i = 0; i < 120; ++i)
                ad.push_back(nKind == 0   ? t.Int(0, 3) == 0 ? t.Int(0, 3 * i) : 0.0
                             : nKind == 1 ? i >= nBar && i < nBar + 10 ? 100.0 : dGround
                             : i == 0     ? 9000.0
                                          : t.Int(0, 8) / 8);
        }
        const double dFar = nKind == 2 ? 3.0 : 120.0;
        const CentroidExtents tExtents = {static_cast<double>(t.Int(10, 90)),
                                          static_cast<double>(t.Int(10, 90))};
        const Centre tCentre =
            RefineByCentroids(aad[0], aad[1], tExtents, {t.Real(0, dFar), t.Real(0, dFar)});
        pad->insert(pad->end(), {tCentre.dX, tCentre.dY});
    });
    WriteCalls<double>(tOut, "geometry/bar_line", 4, [](Random& t, std::vector<double>* pad) {
        const bool bHorizontal = t.Int(0, 1) == 0;
        Plane tPlane(bHorizontal ? 100 : 12, bHorizontal ? 12 : 100, 200);
        const Range tLines = {t.Int(0, 12), t.Int(80, 99)};
        const auto Fill = [&](int nFrom, int nTo, int nFirst, int nLast, int nGrey) {
            tPlane.Fill(bHorizontal ? nFrom : nFirst, bHorizontal ? nFirst : nFrom, bHorizontal ? nTo : nLast,
                        bHorizontal ? nLast : nTo, static_cast<unsigned char>(nGrey));
        };
        Fill(static_cast<int>(tLines.nFirst), static_cast<int>(tLines.nLast), 3, 7, t.Int(0, 90));
        AddNoise(t, tPlane, t.Int(0, 1) == 0 ? t.Int(0, 9) : 0);
        if (t.Int(0, 3) == 0) // barely brighter beside the band: an edge far outside
            Fill(t.Int(10, 80), 99, 0, 2, 91);
        BarLine tLine = {{nNone, nNone}, {nNone, nNone}};
        const Range tRun = {t.Int(0, 20), t.Int(70, 99)}, tBand = {t.Int(0, 4), t.Int(5, 11)};
        const double adAt[] = {t.Int(0, 5) == 0 ? 20 + 79 * t.Int(0, 1)
                               : t.Int(0, 1)    ? t.Int(10, 90) - 1e-9 * static_cast<double>(tRun.nFirst % 2)
                                                : t.Real(10, 90),
                               t.Real(60, 120)};
        pad->push_back(MeasureBarLine({tPlane.Data(), {tPlane.nColumns, tPlane.nRows}}, bHorizontal, tRun,
                                      adAt[0], tBand, adAt[1], {1, 2, 3, 4, 5, 6}, &tLine));
        pad->insert(pad->end(),
                    {tLine.tFirst.dAlong, tLine.tFirst.dAcross, tLine.tSecond.dAlong, tLine.tSecond.dAcross});
    });
    const auto AnyBar = [](Random& t) {
        const int nAcross = t.Int(0, 1) == 0 ? 200 : 1;
        return BarLine{{t.Real(100, 300), nAcross + t.Real(0, 4)},
                       {t.Real(400, 700), nAcross + (t.Int(0, 3) == 0 ? 2 : t.Real(0, 4))}};
    };
    WriteCalls<double>(tOut, "geometry/crossing", 8, [&](Random& t, std::vector<double>* pad) {
        BarLine tVertical = AnyBar(t);
        if (const int n = t.Int(0, 3); n < 2) // upright, or all but upright
            tVertical.tSecond.dAcross = tVertical.tFirst.dAcross + n * t.Real(-2e-6, 2e-6);
        const Centre tCentre = CrossBars(AnyBar(t), tVertical);
        pad->insert(pad->end(), {tCentre.dX, tCentre.dY});
    });
    // Slopes whose angle in single precision shows the last digit of the constants.
    constexpr float afTelling[] = {0.510654628f, 0.529010057f, 0.548483908f, 0.717454553f};
    for (unsigned int n = 0; n < 16; ++n) {
        Random t(n);
        const BitLines tLines(tOut, "geometry/bar_angle_" + std::to_string(n));
        atAtanCalls.clear();
        const double dAngle =
            BarAngle(n < std::size(afTelling) ? BarLine{{0, 0}, {1, afTelling[n]}} : AnyBar(t));
        tLines.AddAtans();
        tLines.Elements("single", "dAngle", &dAngle, sizeof dAngle);
    }
}

void WriteCorners(std::ostream& tOut) {
    WriteCalls<int>(tOut, "corners/dark_count_drop", 6, [](Random& t, std::vector<int>* pan) {
        const bool bRowLines = t.Int(0, 1) == 0;
        const std::vector<int> an = AnyProfile(t, 24, 16, 50);
        Plane tPlane(bRowLines ? 60 : 24, bRowLines ? 24 : 60, 255);
        for (int n = 0; n < 24; ++n)
            tPlane.Fill(bRowLines ? 0 : n, bRowLines ? n : 0,
                        bRowLines ? an[static_cast<std::size_t>(n)] - 1 : n,
                        bRowLines ? n : an[static_cast<std::size_t>(n)] - 1, 0);
        const int nFrom = t.Int(0, 23), nTo = t.Int(0, 23), nFirst = t.Int(0, 1);
        int nLine = nNone;
        FindDarkCountDrop(tPlane.Data(), tPlane.nColumns, bRowLines ? nFirst : nFrom,
                          bRowLines ? nFrom : nFirst, bRowLines ? 59 : nTo, bRowLines ? nTo : 59, bRowLines,
                          &nLine);
        pan->push_back(nLine);
    });
    WriteCalls<double>(tOut, "corners/stripe_centre", 5, [](Random& t, std::vector<double>* pad) {
        Plane tPlane(12, 12, 200);
        const int an[] = {t.Int(0, 6), t.Int(0, 6), t.Int(5, 11), t.Int(5, 11), t.Int(0, 90)};
        tPlane.Fill(an[0], an[1], an[2], an[3], static_cast<unsigned char>(an[4]));
        AddNoise(t, tPlane, t.Int(0, 1) * 60);
        for (int i = t.Int(0, 7); i > 0; --i) { // lines without anything dark
            const int n = t.Int(0, 11);
            t.Int(0, 1) ? tPlane.Fill(n, 0, n, 11, 200) : tPlane.Fill(0, n, 11, n, 200);
        }
        if (t.Int(0, 5) == 0)
            tPlane.Fill(0, 0, 1, 11, 92).Fill(0, 0, 11, 1, 92);
        const int x1 = t.Int(0, 3) == 0 ? t.Int(-1, 3) : 0, y1 = t.Int(0, 3) == 0 ? t.Int(-1, 3) : 0;
        double x = nNone, y = nNone;
        const int x2 = t.Int(2, 12), y2 = t.Int(2, 12), nNull = t.Int(0, 19);
        const bool bColumnLines = t.Int(0, 1) == 0;
        const bool bFound =
            MeasureStripeLineCentre(tPlane.Data(), 12, 12, x1, y1, x2, y2, bColumnLines,
                                    nNull == 0 ? nullptr : &x, nNull == 1 ? nullptr : &y, t.Real(80, 110));
        pad->insert(pad->end(), {bFound ? 1.0 : 0.0, x, y});
    });
    WriteCalls<double>(tOut, "corners/cross_sides", 4, [](Random& t, std::vector<double>* pad) {
        SidePoints tHorizontal, tVertical;
        const int nKind = t.Int(0, 9);
        for (int i = 0; i < nFitPoints; ++i) {
            tHorizontal.adX[i] = nKind == 0 ? 5.0 : t.Real(0, 40) + 50 * i;
            tHorizontal.adY[i] = t.Real(90, 95);
            tVertical.adX[i] = nKind == 1 ? 60.0 : t.Real(60, 64);
            tVertical.adY[i] = nKind == 2 ? 5.0 : t.Real(0, 20) + 30 * i;
        }
        const std::optional<CornerPosition> o = CrossSides(tHorizontal, tVertical);
        double adFit[4] = {nNone, nNone, nNone, nNone};
        FitLineYonX(tHorizontal.adX, tHorizontal.adY, nKind == 3 ? nullptr : &adFit[0],
                    nKind == 4 ? nullptr : &adFit[1]);
        FitLineXonY(tVertical.adX, tVertical.adY, &adFit[2], &adFit[3]);
        pad->insert(pad->end(),
                    {o ? o->dX : nNone, o ? o->dY : nNone, adFit[0], adFit[1], adFit[2], adFit[3]});
    });
}

void WriteEntry(std::ostream& tOut) {
    WriteCalls<double>(tOut, "entry/rescaled_angle", 2, [](Random& t, std::vector<double>* pad) {
        constexpr double adLimits[] = {0.0, -0.0, 0.2, -0.2, 0.9999999, -0.9999999,
                                       1.0, -1.0, 2.5, -2.5, 1e300,     -1e300};
        const double d = t.Int(0, 2) == 0 ? adLimits[t.Int(0, 11)] : t.Real(-3.2, 3.2);
        pad->insert(pad->end(), {RescaledAngle(d), IsOutOfRange(d) ? 1.0 : 0.0});
    });
    WriteCalls<int>(tOut, "entry/out_of_range", 1, [](Random& t, std::vector<int>* pan) {
        const double dLimit = t.Int(0, 1) ? 2.0 : -2.0;
        pan->push_back(IsOutOfRange(t.Int(0, 1) ? dLimit : std::nextafter(dLimit, t.Real(-9, 9))));
    });
    WriteCalls<int>(tOut, "entry/to_integer", 2, [](Random& t, std::vector<int>* pan) {
        constexpr double adLimits[] = {2147483647.0, 2147483646.5, -2147483648.0, -2147483648.5, 1e300,
                                       -1e300,       32767.5,      -32768.5,      -0.9999};
        const double d = t.Int(0, 2) == 0 ? adLimits[t.Int(0, 8)] : t.Real(-40000, 40000);
        pan->insert(pan->end(), {ToInt(d), ToInteger<short>(d), ToInt(std::nan(""))});
    });
    std::vector<int>
        anLimits; // and beyond; the phone's processor defines them, a plain cast differs between CPUs
    for (const double d :
         {0.0, -0.0, 0.999999, -0.999999, 1.5, -24.217, 32767.9, -32768.9, 40000.0, -40000.0, 2147483647.5,
          -2147483648.5, 1e300, -1e300, HUGE_VAL, -HUGE_VAL, std::nan(""), 5e-324})
        anLimits.insert(anLimits.end(), {ToInt(d), ToInteger<short>(d)});
    BitLines(tOut, "entry/to_integer_limits").Add("results", anLimits);
    for (unsigned int n = 0; n < 12; ++n) {
        Random t(n);
        const BitLines tLines(tOut, "entry/record_" + std::to_string(n));
        std::array<unsigned char, ORVEX_CALIBRATION_SIZE> aubCalibration;
        for (unsigned char& ub : aubCalibration)
            ub = static_cast<unsigned char>(t.Int(0, 255));
        // Focus pairs whose offset shows that its product is not rounded.
        constexpr int anTelling[][2] = {{4649, 71}, {9298, 142}, {12901, 197}, {16829, 257}};
        for (const std::size_t nAt : {std::size_t{13}, std::size_t{2911}})
            for (std::size_t i = 0; i < 2 && n < std::size(anTelling); ++i) {
                aubCalibration[nAt + 2 * i] = static_cast<unsigned char>(anTelling[n][i] / 256);
                aubCalibration[nAt + 2 * i + 1] = static_cast<unsigned char>(anTelling[n][i] % 256);
            }
        float afCentres[4];
        for (float& f : afCentres)
            f = static_cast<float>(t.Real(0, n == 11 ? 90000 : 2000));
        const _AFPROTECT tRecord = MakeRecord(&afCentres[0], &afCentres[2], aubCalibration.data());
        std::array<unsigned char, sizeof tRecord> aubRecord;
        std::memcpy(aubRecord.data(), &tRecord, sizeof tRecord);
        std::array<unsigned char, nRecordKeyBytes> aubKey = {};
        Orvex_GenerateKey(aubCalibration.data(), aubKey.data());
        tLines.Add("record", aubRecord);
        tLines.Add("key", aubKey);
    }
}

} // namespace digests

#include "trust/margins.h"

#include "reading/ink_across.h"

#include <algorithm>
#include <cmath>

namespace tools {
namespace {

using Corners = std::array<Point, 4>;

std::optional<Corners> CornersOf(const CameraResult& t) {
    if (!t.tReading.oReading)
        return KnownCorners(t);
    Corners a;
    std::ranges::transform(t.tReading.oReading->aCorners, a.begin(), &UncertainPoint::tPlace);
    return a;
}

// Where the line through two points stands at the height of a third.
double ColumnAt(Point tFrom, Point tTo, Point t) {
    return std::lerp(tFrom.dX, tTo.dX, (t.dY - tFrom.dY) / (tTo.dY - tFrom.dY));
}
double RowAt(Point tFrom, Point tTo, Point t) {
    return std::lerp(tFrom.dY, tTo.dY, (t.dX - tFrom.dX) / (tTo.dX - tFrom.dX));
}

// Each corner of the start is searched from towards the two sides that meet beyond it.
double FrameStartMargin(const Rectangle& tStart, const Corners& a) {
    double dLeast = HUGE_VAL;
    for (std::size_t n = 0; n < 4; ++n) {
        const Point t = tStart.Corners()[n];
        const double dSide = n % 2 != 0 ? ColumnAt(a[1], a[3], t) - t.dX : t.dX - ColumnAt(a[0], a[2], t);
        const double dEnd = n / 2 != 0 ? RowAt(a[2], a[3], t) - t.dY : t.dY - RowAt(a[0], a[1], t);
        dLeast = std::min({dLeast, dSide, dEnd});
    }
    return dLeast;
}

// From what was read of a bar on to where it ends: a gap of a line's width is its end.
double EndOf(const AxisView& tView, const LineReading& tBar, double dFrom, int nStep) {
    int nLast = static_cast<int>(dFrom);
    for (int n = nLast; tView.HasLine(n) && std::abs(n - nLast) <= tBar.dWidth; n += nStep) {
        const double dExpected = tBar.tLine.At(n);
        const auto o = FindInk(tView, n, dExpected, 2 * tBar.dWidth);
        if (o && std::fabs(o->dCentre - dExpected) < tBar.dWidth &&
            std::min(o->dPaperBefore, o->dPaperAfter) - o->dDark > tBar.dContrast / 2)
            nLast = n;
    }
    return nLast;
}

double WindowMargin(const Picture& tPicture, const Rectangle& tWindow, const CameraReading& tReading) {
    const auto MarginAlong = [&](std::size_t nBar, double dFirst, double dLast) {
        const LineReading& tBar = tReading.aLines[nBar];
        const AxisView tView = ViewAlong(nBar == kHorizontalBar, tPicture);
        return std::min(EndOf(tView, tBar, tBar.tAlong.dFirst, -1) - dFirst,
                        dLast - EndOf(tView, tBar, tBar.tAlong.dLast, 1));
    };
    return std::min(MarginAlong(kHorizontalBar, tWindow.dLeft, tWindow.dRight),
                    MarginAlong(kVerticalBar, tWindow.dTop, tWindow.dBottom));
}

} // namespace

double RollShift(const CameraReading& reading) {
    const SideName& tTop = kSides[1];
    return std::fabs(reading.aCorners[tTop.nTo].tPlace.dY - reading.aCorners[tTop.nFrom].tPlace.dY) / 2;
}

Margins MarginsOf(const Picture& tPicture, const CameraResult& tResult) {
    const StageView& tView = tResult.tView;
    const auto& oReading = tResult.tReading.oReading;
    Margins t;
    if (const auto oCorners = CornersOf(tResult); oCorners && tView.oFrameStart)
        t.oFrameStart = FrameStartMargin(*tView.oFrameStart, *oCorners) -
                        (oReading ? oReading->aLines.front().dWidth / 2 : 0);
    if (oReading)
        t.oRoll = tResult.tFrameSearch.nMargin - RollShift(*oReading);
    if (oReading && tView.oFirstWindow)
        t.oWindow = WindowMargin(tPicture, *tView.oFirstWindow, *oReading);
    return t;
}

} // namespace tools

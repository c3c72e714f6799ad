#include "geometry/bar_line.h"

#include "core/to_integer.h"
#include "geometry/dark_histograms.h"
#include "geometry/dark_run.h"

namespace orvex {
namespace {

// Lines of one end, from an eighth to a quarter of the way from the run's end to the cross's centre.
struct EndLines {
    double dNearCentre;
    double dNearEnd;
};

EndLines EndLinesOf(double dRunEnd, double dCentre) {
    const double dNearCentre = dRunEnd + 0.25 * (dCentre - dRunEnd);
    return {dNearCentre, dRunEnd + 0.5 * (dNearCentre - dRunEnd)};
}

// False if a line has no dark pixel in the bar's band.
bool MeasureEnd(const GreyLines& t, double dThreshold, BarEnd* ptEnd) {
    double dAlong = 0.0, dAcross = 0.0;
    const bool bDark =
        ForEachDarkRunCentre(t, dThreshold, [&](std::int64_t n, std::optional<double> oCentre) {
            dAlong += static_cast<double>(n);
            dAcross += oCentre.value_or(0.0);
            return oCentre.has_value();
        });
    const auto dLines = static_cast<double>(t.tLines.nLast - t.tLines.nFirst + 1);
    if (bDark)
        *ptEnd = {dAlong / dLines, dAcross / dLines};
    return bDark;
}

bool IsNegative(BarEnd t) {
    return t.dAlong < 0 || t.dAcross < 0;
}

} // namespace

unsigned int FindBarRun(std::span<const double> adHistogram, const BarStatuses& tStatuses, Range* ptRun) {
    // A run without a start leaves 0 here and fails with the same status as one that starts at entry 0, so
    // that the status for a missing start does not occur.
    *ptRun = {FirstOfDenseRun(adHistogram).value_or(0), LastOfDenseRun(adHistogram).value_or(0)};
    const bool bFound = ptRun->nFirst < ptRun->nLast && ptRun->nFirst != 0;
    return bFound ? 0 : tStatuses.nNoRun;
}

unsigned int MeasureBarLine(PlaneView tGrey, bool bHorizontal, Range tRun, double dCentre, Range tBand,
                            double dThreshold, const BarStatuses& tStatuses, BarLine* ptLine) {
    const EndLines tFirst = EndLinesOf(static_cast<double>(tRun.nFirst), dCentre);
    const EndLines tSecond = EndLinesOf(static_cast<double>(tRun.nLast), dCentre);
    if (tFirst.dNearCentre <= tFirst.dNearEnd || tSecond.dNearCentre >= tSecond.dNearEnd)
        return tStatuses.nOffCentre;
    const Range tFirstLines = {ToInt(tFirst.dNearEnd), ToInt(tFirst.dNearCentre)};
    const Range tSecondLines = {ToInt(tSecond.dNearCentre), ToInt(tSecond.dNearEnd)};
    if (!MeasureEnd({tGrey, bHorizontal, tFirstLines, tBand}, dThreshold, &ptLine->tFirst))
        return tStatuses.nFirstSample;
    if (!MeasureEnd({tGrey, bHorizontal, tSecondLines, tBand}, dThreshold, &ptLine->tSecond))
        return tStatuses.nSecondSample;
    return IsNegative(ptLine->tFirst) || IsNegative(ptLine->tSecond) ? tStatuses.nOutside : 0;
}

} // namespace orvex

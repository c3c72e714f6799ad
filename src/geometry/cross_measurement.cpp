#include "geometry/cross_measurement.h"

#include "Orvex_Alignment.h"
#include "core/to_integer.h"
#include "geometry/crossing.h"

namespace orvex {
namespace {

constexpr BarStatuses tHorizontalStatuses = {ORVEX_CROSS_NO_COLUMN_RUN,      ORVEX_CROSS_NO_ROW_BAND,
                                             ORVEX_CROSS_COLUMNS_OFF_CENTRE, ORVEX_CROSS_LEFT_SAMPLE,
                                             ORVEX_CROSS_RIGHT_SAMPLE,       ORVEX_CROSS_ROW_BAR_OUTSIDE};
constexpr BarStatuses tVerticalStatuses = {ORVEX_CROSS_NO_ROW_RUN,      ORVEX_CROSS_NO_COLUMN_BAND,
                                           ORVEX_CROSS_ROWS_OFF_CENTRE, ORVEX_CROSS_UPPER_SAMPLE,
                                           ORVEX_CROSS_LOWER_SAMPLE,    ORVEX_CROSS_COLUMN_BAR_OUTSIDE};

CentroidExtents ExtentsOf(CentreWindow t) {
    return {static_cast<double>(ToInt(static_cast<double>(t.x1 - t.x0) * 0.6)),
            static_cast<double>(ToInt(static_cast<double>(t.y1 - t.y0) * 0.7))};
}

} // namespace

unsigned int MeasureCross(PlaneView tGrey, const DarkHistograms& tHistograms, CentreWindow tWindow,
                          const unsigned short* pCoarseCentre, double dThreshold, CrossMeasurement* pCross) {
    const std::span<const double> adColumns = tHistograms.Columns(), adRows = tHistograms.Rows();
    Range tColumnRun, tRowRun;
    if (const unsigned int n = FindBarRun(adColumns, tHorizontalStatuses, &tColumnRun))
        return n;
    pCross->nSpanX = static_cast<int>(tColumnRun.nLast - tColumnRun.nFirst) + 1;

    const CentroidExtents tExtents = ExtentsOf(tWindow);
    const Centre tCentre =
        RefineByCentroids(adColumns, adRows, tExtents,
                          {static_cast<double>(pCoarseCentre[0]), static_cast<double>(pCoarseCentre[1])});
    const Range tRowBand = FindBarBand(adRows, tCentre.dY, tExtents.dY);
    if (tRowBand.IsEmpty())
        return tHorizontalStatuses.nNoBand;
    if (const unsigned int n = FindBarRun(adRows, tVerticalStatuses, &tRowRun))
        return n;
    const Range tColumnBand = FindBarBand(adColumns, tCentre.dX, tExtents.dX);
    if (tColumnBand.IsEmpty())
        return tVerticalStatuses.nNoBand;

    BarLine tHorizontal, tVertical;
    if (const unsigned int n = MeasureBarLine(tGrey, true, tColumnRun, tCentre.dX, tRowBand, dThreshold,
                                              tHorizontalStatuses, &tHorizontal))
        return n;
    if (const unsigned int n = MeasureBarLine(tGrey, false, tRowRun, tCentre.dY, tColumnBand, dThreshold,
                                              tVerticalStatuses, &tVertical))
        return n;
    const Centre tCrossing = CrossBars(tHorizontal, tVertical);
    pCross->afCentre[0] = static_cast<float>(tCrossing.dX);
    pCross->afCentre[1] = static_cast<float>(tCrossing.dY);
    pCross->fAngle = BarAngle(tHorizontal);
    return ORVEX_OK;
}

} // namespace orvex

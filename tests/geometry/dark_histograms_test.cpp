#include "geometry/dark_histograms.h"

#include "Orvex_Alignment_Stages.h"
#include "geometry/coarse_centre.h"
#include "support/any_plane.h"

#include <gtest/gtest.h>
#include <numeric>

using namespace orvex;
using namespace support;

namespace {

int PlainDenseRun(const std::vector<double>& ad, bool bFirst) {
    const int nSize = static_cast<int>(ad.size()), nStep = bFirst ? 1 : -1;
    const auto IsFilled = [&](int n) {
        return n >= 0 && n < nSize && ad[static_cast<std::size_t>(n)] != 0.0;
    };
    for (int n = bFirst ? 0 : nSize - 1; n >= 0 && n < nSize; n += nStep) {
        int nFilled = 0;
        for (int i = 1; i <= 100; ++i)
            nFilled += IsFilled(n + i * nStep);
        if (IsFilled(n) && nFilled > 89)
            return n;
    }
    return 0;
}

// Sorted with their indices, of which a picture higher than wide has too few for its rows.
std::vector<unsigned short> PlainCoarseCentre(std::vector<double> adColumns, std::vector<double> adRows) {
    const int nFirst = PlainDenseRun(adRows, true), nLast = PlainDenseRun(adRows, false);
    std::vector<unsigned short> aColumn(adColumns.size()), aRow(std::max(adRows.size(), adColumns.size()));
    std::iota(aColumn.begin(), aColumn.end(), static_cast<unsigned short>(0));
    std::copy(aColumn.begin(), aColumn.end(), aRow.begin());
    bubblesort(adColumns.data(), aColumn.data(), static_cast<int>(adColumns.size()));
    bubblesort(adRows.data(), aRow.data(), static_cast<int>(adRows.size()));
    aRow.resize(adRows.size());
    const auto pRow = std::ranges::find_if(aRow, [&](int n) { return n >= nFirst && n <= nLast; });
    return {aColumn[0], pRow == aRow.end() ? static_cast<unsigned short>(77) : *pRow};
}

} // namespace

TEST(DarkHistograms, CountsAndCoarseCentreAreThoseOfEveryPixelAndOfSorting) {
    Random t(8);
    for (int i = 0; i < 3000; ++i) {
        const Plane tPlane = AnyPlane(t);
        const PlaneView tView = ViewOf(tPlane);
        const Rect tRect = AnyRect(t, tPlane);
        std::optional<DarkBits> oDark = DarkBits::Bright(t.Int(0, 1) == 0 ? tRect : tView.tSize.Bounds());
        ASSERT_TRUE(oDark);
        SetDark(tView, 1, &*oDark);
        const std::optional<DarkHistograms> o = CountDark(*oDark, tView.tSize, tRect);
        ASSERT_TRUE(o);
        std::vector<double> adColumns(o->Columns().size()), adRows(o->Rows().size());
        for (std::int64_t y = tRect.tRows.nFirst; y <= tRect.tRows.nLast; ++y)
            for (std::int64_t x = tRect.tColumns.nFirst; x <= tRect.tColumns.nLast; ++x)
                if (tView.Row(y)[x] == 0) {
                    ++adColumns[static_cast<std::size_t>(x)];
                    ++adRows[static_cast<std::size_t>(y)];
                }
        SCOPED_TRACE(i);
        ASSERT_TRUE(std::ranges::equal(adColumns, o->Columns()));
        ASSERT_TRUE(std::ranges::equal(adRows, o->Rows()));
        ASSERT_EQ(FirstOfDenseRun(adRows).value_or(0), PlainDenseRun(adRows, true));
        ASSERT_EQ(LastOfDenseRun(adRows).value_or(0), PlainDenseRun(adRows, false));
        std::vector<unsigned short> aCentre = {77, 77};
        FindCoarseCentre(*o, aCentre.data());
        ASSERT_EQ(aCentre, PlainCoarseCentre(adColumns, adRows));
    }
}

#include "geometry/coarse_centre.h"

#include "Orvex_Alignment_Stages.h"

#include <numeric>

namespace orvex {

bool FindCoarseCentre(const DarkHistograms& tHistograms, unsigned short* pCenter) {
    const std::span<double> adColumns = tHistograms.Columns(), adRows = tHistograms.Rows();
    const auto pColumnIndex = MakeScratch<unsigned short>(adColumns.size());
    const auto pRowIndex = MakeScratch<unsigned short>(adRows.size());
    if (!pColumnIndex || !pRowIndex)
        return false;
    std::iota(pColumnIndex.get(), pColumnIndex.get() + adColumns.size(), static_cast<unsigned short>(0));
    // In a picture higher than wide the row indices beyond its width stay 0, on purpose.
    const std::size_t nIndexedRows = std::min(adRows.size(), adColumns.size());
    std::iota(pRowIndex.get(), pRowIndex.get() + nIndexedRows, static_cast<unsigned short>(0));

    const Range tRun = {FirstOfDenseRun(adRows).value_or(0), LastOfDenseRun(adRows).value_or(0)};
    bubblesort(adRows.data(), pRowIndex.get(), static_cast<int>(adRows.size()));
    bubblesort(adColumns.data(), pColumnIndex.get(), static_cast<int>(adColumns.size()));
    pCenter[0] = pColumnIndex[0];
    const unsigned short* const pEnd = pRowIndex.get() + adRows.size();
    const unsigned short* const pRow =
        std::find_if(static_cast<const unsigned short*>(pRowIndex.get()), pEnd,
                     [&](unsigned short uwRow) { return tRun.Contains(uwRow); });
    if (pRow != pEnd)
        pCenter[1] = *pRow;
    return true;
}

} // namespace orvex

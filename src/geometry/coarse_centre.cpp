#include "geometry/coarse_centre.h"

#include <algorithm>

namespace orvex {

void FindCoarseCentre(const DarkHistograms& tHistograms, unsigned short* pCenter) {
    const std::span<const double> adColumns = tHistograms.Columns(), adRows = tHistograms.Rows();
    const Range tRun = {FirstOfDenseRun(adRows).value_or(0), LastOfDenseRun(adRows).value_or(0)};
    pCenter[0] = static_cast<unsigned short>(std::ranges::max_element(adColumns) - adColumns.begin());
    double dMost = -1.0;
    for (std::size_t y = 0; y < adRows.size(); ++y) {
        // In a picture higher than wide the rows beyond its width count as row 0, on purpose.
        const auto uwRow = static_cast<unsigned short>(y < adColumns.size() ? y : 0);
        if (adRows[y] > dMost && tRun.Contains(uwRow)) {
            dMost = adRows[y];
            pCenter[1] = uwRow;
        }
    }
}

} // namespace orvex

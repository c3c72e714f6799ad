#include "corners/stripe_centre.h"

#include "geometry/dark_run.h"

namespace orvex {
namespace {

constexpr int nMostMisses = 5;

// Sum of the centres over a stripe's lines, in line order.
struct CentreSum {
    double dSum = 0.0;
    int nLines = 0;
    int nMisses = 0;
    std::optional<double> oLatest;

    void Add(double dCentre) {
        // The first valid centre stands in for the misses before it, which are all the lines so far.
        for (int nOwing = oLatest ? 0 : nMisses; nOwing > 0; --nOwing)
            dSum += dCentre;
        dSum += dCentre;
        oLatest = dCentre;
    }

    // False for one miss too many.
    bool AddLine(std::optional<double> oCentre) {
        ++nLines;
        if (oCentre) {
            Add(*oCentre);
            return true;
        }
        if (oLatest)
            dSum += *oLatest;
        return ++nMisses <= nMostMisses;
    }
};

} // namespace

bool MeasureStripeLineCentre(const unsigned char* pGray, int nImageWidth, int nImageHeight, int nX1, int nY1,
                             int nX2, int nY2, bool bColumnLines, double* pdX, double* pdY,
                             double dThreshold) {
    const PlaneView tGrey = {pGray, {nImageWidth, nImageHeight}};
    const Rect tStripe = {{nX1, nX2}, {nY1, nY2}};
    if (tStripe.IsEmpty() || !tGrey.tSize.Bounds().Contains(tStripe))
        return false;
    const GreyLines tLines = {tGrey, bColumnLines, bColumnLines ? tStripe.tColumns : tStripe.tRows,
                              bColumnLines ? tStripe.tRows : tStripe.tColumns};
    CentreSum tSum;
    double dOuter = 0.0;
    const bool bMeasured =
        ForEachDarkRunCentre(tLines, dThreshold, [&](std::int64_t n, std::optional<double> oCentre) {
            dOuter += static_cast<double>(n);
            return tSum.AddLine(oCentre);
        });
    if (!bMeasured || !tSum.oLatest)
        return false;
    const double dCentre = tSum.dSum / tSum.nLines, dAlong = dOuter / tSum.nLines;
    const double x = bColumnLines ? dAlong : dCentre, y = bColumnLines ? dCentre : dAlong;
    if (x < 0 || y < 0)
        return false;
    if (pdX != nullptr)
        *pdX = x;
    if (pdY != nullptr)
        *pdY = y;
    return true;
}

} // namespace orvex

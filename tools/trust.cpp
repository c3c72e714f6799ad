#include "trust.h"

#include <algorithm>

namespace tools {
namespace {

// The frame's outer edge lies half a line beyond the corners.
std::optional<double> BorderDistance(const Picture& tPicture, const CameraMeasurement& tMeasured,
                                     const CameraTrust& tTrust) {
    double dHalfLine = 0;
    for (const std::optional<SideReading>& o : tTrust.aoSides)
        if (o && o->oWidth)
            dHalfLine = std::max(dHalfLine, *o->oWidth / 2);
    std::optional<double> oLeast;
    for (const std::optional<Point>& o : tMeasured.aoCorners)
        if (o) {
            const double d = std::min({o->dX + 0.5, tPicture.nColumns - 0.5 - o->dX, o->dY + 0.5,
                                       tPicture.nRows - 0.5 - o->dY}) -
                             dHalfLine;
            oLeast = std::min(d, oLeast.value_or(d));
        }
    return oLeast;
}

void AddSide(const Picture& tPicture, Point tFrom, Point tTo, std::size_t nSide, CameraTrust& t) {
    const SideReading& tReading = t.aoSides[nSide].emplace(ReadSide(tPicture, tFrom, tTo));
    if (tReading.oEnds)
        t.aoCornerDistances[nSide] =
            std::max(Distance(tFrom, (*tReading.oEnds)[0]), Distance(tTo, (*tReading.oEnds)[1]));
}

} // namespace

CameraTrust TrustOf(const Picture& tPicture, const CameraMeasurement& tMeasured) {
    CameraTrust t;
    for (std::size_t i = 0; i < kSides.size(); ++i) {
        const std::optional<Point>&oFrom = tMeasured.aoCorners[kSides[i].nFrom],
              &oTo = tMeasured.aoCorners[kSides[i].nTo];
        if (oFrom && oTo)
            AddSide(tPicture, *oFrom, *oTo, i, t);
    }
    t.oBorderDistance = BorderDistance(tPicture, tMeasured, t);
    t.oCrossSpan = tMeasured.oBarSpan;
    return t;
}

std::optional<double> ReadShareOf(const SideReading& t) {
    return t.nLines > 0 ? std::optional(100.0 * t.nRead / t.nLines) : std::nullopt;
}

} // namespace tools

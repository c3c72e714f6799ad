#include "reading/uncertain_geometry.h"

#include <cmath>

namespace tools {
namespace {

constexpr double kDegrees = 57.29577951308232; // per radian

struct Gradient {
    double dX = 0, dY = 0;
};

double VarianceAlong(Gradient g, const UncertainPoint& t) {
    return g.dX * g.dX * t.dVarianceX + 2 * g.dX * g.dY * t.dCovariance + g.dY * g.dY * t.dVarianceY;
}

// A side's length and how it changes with its end; with its beginning it changes by the opposite.
struct Side {
    double dLength;
    Gradient tEnd;
};

Side SideOf(const CameraReading& reading, std::size_t nSide) {
    const Point tFrom = reading.aCorners[kSides[nSide].nFrom].tPlace,
                tTo = reading.aCorners[kSides[nSide].nTo].tPlace;
    const double dX = tTo.dX - tFrom.dX, dY = tTo.dY - tFrom.dY, dLength = std::hypot(dX, dY);
    return {dLength, {dX / dLength, dY / dLength}};
}

// The tilt that makes one of two opposite sides look longer than the other. No corner belongs to both.
UncertainNumber TiltOf(const CameraReading& reading, std::size_t nFirst, std::size_t nSecond,
                       double dDistance, double dHalfSpan) {
    const double a = reading.aSides[nFirst].dValue, b = reading.aSides[nSecond].dValue;
    const double q = dDistance / dHalfSpan * (a - b) / (a + b);
    const double dPerRatio = kDegrees / (1 + q * q) * dDistance / dHalfSpan * 2 / ((a + b) * (a + b));
    return {std::atan(q) * kDegrees,
            dPerRatio * dPerRatio *
                (b * b * reading.aSides[nFirst].dVariance + a * a * reading.aSides[nSecond].dVariance)};
}

} // namespace

UncertainPoint CrossingOf(const UncertainLine& tHorizontal, const UncertainLine& tVertical) {
    const double m = tHorizontal.dSlope, n = tVertical.dSlope, dDivisor = 1 - m * n;
    const double dX = tVertical.At(tHorizontal.At(0)) / dDivisor + 0;
    const double dY = tHorizontal.At(dX);
    // A shift of the horizontal line by e moves the point by (n e, e) / divisor, one of the vertical line by
    // (e, m e) / divisor.
    const double dAcrossRows = tHorizontal.VarianceAt(dX) / (dDivisor * dDivisor);
    const double dAcrossColumns = tVertical.VarianceAt(dY) / (dDivisor * dDivisor);
    return {{dX, dY},
            n * n * dAcrossRows + dAcrossColumns,
            n * dAcrossRows + m * dAcrossColumns,
            dAcrossRows + m * m * dAcrossColumns};
}

void DeriveAngles(const ChartMeasures& tMeasures, CameraReading& reading) {
    for (std::size_t n = 0; n < 4; ++n) {
        const Side t = SideOf(reading, n);
        reading.aSides[n] = {t.dLength, VarianceAlong(t.tEnd, reading.aCorners[kSides[n].nFrom]) +
                                            VarianceAlong(t.tEnd, reading.aCorners[kSides[n].nTo])};
    }
    reading.tTiltX = TiltOf(reading, 1, 3, tMeasures.dDistance, tMeasures.dHalfSpanY);
    reading.tTiltX.dValue = -reading.tTiltX.dValue;
    reading.tTiltY = TiltOf(reading, 0, 2, tMeasures.dDistance, tMeasures.dHalfSpanX);
    const UncertainLine& tBar = reading.tHorizontalBar.tLine;
    const double dPerSlope = kDegrees / (1 + tBar.dSlope * tBar.dSlope);
    reading.tRoll = {-std::atan(tBar.dSlope) * kDegrees, dPerSlope * dPerSlope * tBar.dSlopeVariance};
}

} // namespace tools

#pragma once

#include "chart/scene.h"
#include "support/random.h"

#include <algorithm>
#include <cmath>

namespace support {

// What lies on a chart or in the way of its light, before the lens blurs it.
enum class Dirt { kDisc, kBar, kHair, kShadow, kGlare };
constexpr int kDirts = 5;

// Share of a pixel so far inside an edge, px.
inline double Inside(double d) {
    return std::clamp(d + 0.5, 0.0, 1.0);
}

// What a piece of some size, shape and level, each from 0 to 1, makes of the light so far from its place
// along and across itself, px.
inline double DirtyLight(Dirt tDirt, double dLight, double u, double v, const double (&ad)[3]) {
    const double dSize = ad[0], dShape = ad[1], dLevel = ad[2];
    const auto Covered = [&](double dShare) { return std::lerp(dLight, 150 * dLevel, dShare); };
    switch (tDirt) {
    case Dirt::kDisc:
        return Covered(Inside(3 + 47 * dSize * dSize - std::hypot(u, v)));
    case Dirt::kBar:
        return Covered(Inside(5 + 200 * dSize - std::fabs(u)) * Inside(2 + 13 * dShape - std::fabs(v)));
    case Dirt::kHair:
        return Covered(Inside(20 + 400 * dSize - std::fabs(u)) * Inside(0.4 - std::fabs(v)));
    case Dirt::kShadow:
        return dLight * std::lerp(1.0, 0.4 + 0.55 * dLevel, Inside(v / (1 + 30 * dSize)));
    default:
        return dLight + (20 + 180 * dLevel) *
                            std::exp(-(u * u + v * v * (1 + 8 * dShape)) / std::pow(10 + 140 * dSize, 2));
    }
}

// Any piece of dirt at a place, px. Every other one lies along the rows or the columns but for some degrees,
// as the chart's lines do, where it does most harm.
inline void DrawDirt(double dX, double dY, Random& t, chart::Plane& tPlane) {
    const auto tDirt = static_cast<Dirt>(t.Int(0, kDirts - 1));
    const double ad[] = {t.Real(0, 1), t.Real(0, 1), t.Real(0, 1)};
    const double dAny = t.Real(0, 3.1416), dQuarter = t.Int(0, 1) * 1.5708;
    const double dNearly = dQuarter + t.Real(-0.05, 0.05);
    const double dTurn = t.Int(0, 1) != 0 ? dAny : dNearly, dCosine = std::cos(dTurn),
                 dSine = std::sin(dTurn);
    float* p = tPlane.aGrey.data();
    for (int y = 0; y < tPlane.nHeight; ++y)
        for (int x = 0; x < tPlane.nWidth; ++x, ++p) {
            const double u = (x - dX) * dCosine + (y - dY) * dSine, v = (y - dY) * dCosine - (x - dX) * dSine;
            *p = static_cast<float>(DirtyLight(tDirt, static_cast<double>(*p), u, v, ad));
        }
}

} // namespace support

#pragma once

#include "chart/scene.h"
#include "support/random.h"

#include <algorithm>
#include <cmath>

namespace support {

// What lies on a chart or in the way of its light, in picture px and grey levels, before the lens blurs it.
enum class Dirt { kDisc, kBar, kHair, kShadow, kGlare };

struct DirtPlace {
    double dX, dY;
};

// Calls with each pixel and its place in the dirt's own axes, turned by an angle.
template <typename Call>
void ForEachPixel(chart::Plane& tPlane, DirtPlace tPlace, double dTurn, Call Use) {
    const double dCosine = std::cos(dTurn), dSine = std::sin(dTurn);
    float* p = tPlane.aGrey.data();
    for (int y = 0; y < tPlane.nHeight; ++y)
        for (int x = 0; x < tPlane.nWidth; ++x, ++p) {
            const double dX = x - tPlace.dX, dY = y - tPlace.dY;
            *p = static_cast<float>(
                Use(static_cast<double>(*p), dX * dCosine + dY * dSine, dY * dCosine - dX * dSine));
        }
}

// Share of a pixel so far inside an edge, px.
inline double Inside(double d) {
    return std::clamp(d + 0.5, 0.0, 1.0);
}

inline void DrawDirt(Dirt tDirt, DirtPlace tPlace, Random& t, chart::Plane& tPlane) {
    const double dGrey = t.Real(0, 150), dTurn = t.Real(0, 3.1416);
    const auto Rectangle = [&](double dHalfLength, double dHalfWidth) {
        ForEachPixel(tPlane, tPlace, dTurn, [&](double dLight, double u, double v) {
            return std::lerp(dLight, dGrey,
                             Inside(dHalfLength - std::fabs(u)) * Inside(dHalfWidth - std::fabs(v)));
        });
    };
    const double dSize = t.Real(0, 1), dShape = t.Real(0, 1), dLevel = t.Real(0, 1);
    if (tDirt == Dirt::kDisc)
        ForEachPixel(tPlane, tPlace, 0, [&](double dLight, double u, double v) {
            return std::lerp(dLight, dGrey, Inside(3 + 47 * dSize * dSize - std::hypot(u, v)));
        });
    if (tDirt == Dirt::kBar)
        Rectangle(5 + 200 * dSize, 2 + 13 * dShape);
    if (tDirt == Dirt::kHair) // half of them along the frame, where they do most harm
        ForEachPixel(tPlane, tPlace,
                     dShape < 0.5 ? dTurn : std::round(dShape) * 1.5708 + (dLevel - 0.5) * 0.1,
                     [&](double dLight, double u, double v) {
                         return std::lerp(dLight, dGrey,
                                          Inside(20 + 400 * dSize - std::fabs(u)) *
                                              std::clamp(0.9 - std::fabs(v), 0.0, 1.0));
                     });
    if (tDirt == Dirt::kShadow)
        ForEachPixel(tPlane, tPlace, dTurn, [&](double dLight, double, double v) {
            return dLight *
                   std::lerp(1.0, 0.4 + 0.55 * dLevel, std::clamp(0.5 + v / (1 + 30 * dSize), 0.0, 1.0));
        });
    if (tDirt == Dirt::kGlare)
        ForEachPixel(tPlane, tPlace, dTurn, [&](double dLight, double u, double v) {
            const double dRadius = 10 + 140 * dSize;
            return dLight +
                   (20 + 180 * dLevel) * std::exp(-(u * u + v * v * (1 + 8 * dShape)) / (dRadius * dRadius));
        });
}

} // namespace support

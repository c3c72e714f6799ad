#include "chart/coverage.h"

namespace chart {

namespace {

// A cut keeps the corners inside and adds one per crossing. Crossings come to at most two per corner inside
// and at most two per corner outside, so a cut leaves at most half as many corners again, whatever rounding
// does to convexity: from the square's four, four cuts make 6, 9, 13, 19.
constexpr std::size_t kMostCorners = 19;

struct Vertex {
    double dX;
    double dY;
};

struct Polygon {
    std::array<Vertex, kMostCorners> aVertices;
    std::size_t nCount = 0;

    void Add(const Vertex& tVertex) { aVertices[nCount++] = tVertex; }
};

double At(const Linear& tBound, const Vertex& tVertex) {
    return tBound.dValue + tBound.dPerX * tVertex.dX + tBound.dPerY * tVertex.dY;
}

Vertex Crossing(const Vertex& a, double dAtA, const Vertex& b, double dAtB) {
    const double d = dAtA / (dAtA - dAtB);
    return {a.dX + d * (b.dX - a.dX), a.dY + d * (b.dY - a.dY)};
}

Polygon Cut(const Polygon& tPolygon, const Linear& tBound) {
    Polygon tKept;
    for (std::size_t i = 0; i < tPolygon.nCount; ++i) {
        const Vertex& tFrom = tPolygon.aVertices[i];
        const Vertex& tTo = tPolygon.aVertices[i + 1 < tPolygon.nCount ? i + 1 : 0];
        const double dFrom = At(tBound, tFrom);
        const double dTo = At(tBound, tTo);
        if (dFrom <= 0)
            tKept.Add(tFrom);
        if ((dFrom <= 0) != (dTo <= 0))
            tKept.Add(Crossing(tFrom, dFrom, tTo, dTo));
    }
    return tKept;
}

double Area(const Polygon& tPolygon) {
    double dTwice = 0.0;
    for (std::size_t i = 0; i < tPolygon.nCount; ++i) {
        const Vertex& a = tPolygon.aVertices[i];
        const Vertex& b = tPolygon.aVertices[i + 1 < tPolygon.nCount ? i + 1 : 0];
        dTwice += a.dX * b.dY - b.dX * a.dY;
    }
    return dTwice / 2;
}

Polygon PixelSquare() {
    Polygon tSquare;
    tSquare.Add({-0.5, -0.5});
    tSquare.Add({0.5, -0.5});
    tSquare.Add({0.5, 0.5});
    tSquare.Add({-0.5, 0.5});
    return tSquare;
}

} // namespace

double AreaBelowZero(const std::array<Linear, 4>& aBounds) {
    Polygon tPolygon = PixelSquare();
    for (const Linear& tBound : aBounds)
        tPolygon = Cut(tPolygon, tBound);
    return Area(tPolygon);
}

} // namespace chart

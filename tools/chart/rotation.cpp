#include "chart/rotation.h"

namespace chart {

namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

// At +-90 degrees the first term left out, (pi/2)^26 / 26!, is below 1e-21: far under a double's rounding.
constexpr int kNestedPowers = 22;

// 1 - x^2/((n+1)(n+2)) * (1 - x^2/((n+3)(n+4)) * ...), the shape both series share, from power n on.
double NestedSeries(double dSquare, int nFirstPower) {
    double dSum = 1.0;
    for (int n = nFirstPower + kNestedPowers; n > nFirstPower; n -= 2)
        dSum = 1.0 - dSquare / (n * (n - 1.0)) * dSum;
    return dSum;
}

Matrix3 Product(const Matrix3& a, const Matrix3& b) {
    Matrix3 aResult{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            aResult[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
    return aResult;
}

} // namespace

SinCos SinCosOfDegrees(double dDegrees) {
    const double d = dDegrees * kRadiansPerDegree;
    const double dSquare = d * d;
    // The leading terms stay apart from the small rest, so that the rest's rounding does not count.
    const double dSinTail = dSquare / 6.0 * NestedSeries(dSquare, 3);
    const double dCosTail = dSquare / 2.0 * NestedSeries(dSquare, 2);
    return {d - d * dSinTail, 1.0 - dCosTail};
}

Matrix3 ChartToCamera(const Pose& tPose) {
    const auto [sx, cx] = SinCosOfDegrees(-tPose.dRx);
    const auto [sy, cy] = SinCosOfDegrees(-tPose.dRy);
    const auto [sz, cz] = SinCosOfDegrees(-tPose.dRz);
    const Matrix3 aX{{{1, 0, 0}, {0, cx, -sx}, {0, sx, cx}}};
    const Matrix3 aY{{{cy, 0, sy}, {0, 1, 0}, {-sy, 0, cy}}};
    const Matrix3 aZ{{{cz, -sz, 0}, {sz, cz, 0}, {0, 0, 1}}};
    return Product(aZ, Product(aX, aY));
}

} // namespace chart

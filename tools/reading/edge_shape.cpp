#include "reading/edge_shape.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tools {
namespace {

constexpr int kSteps = 256;
constexpr double kLeastShare = 0.01; // nearer to a level noise hides how near

// Where a normal distribution has collected a share of its whole, in standard deviations. By the slope of its
// inverse, in steps of fourth order from the middle on.
std::array<double, kSteps + 1> Deviates() {
    const auto Slope = [](double z) { return std::sqrt(2 * 3.14159265358979323846) * std::exp(z * z / 2); };
    constexpr double h = (0.5 - kLeastShare) / kSteps;
    std::array<double, kSteps + 1> ad = {};
    for (std::size_t i = 0; i < kSteps; ++i) {
        const double z = ad[i], k1 = Slope(z), k2 = Slope(z + h / 2 * k1), k3 = Slope(z + h / 2 * k2),
                     k4 = Slope(z + h * k3);
        ad[i + 1] = z + h / 6 * (k1 + 2 * k2 + 2 * k3 + k4);
    }
    return ad;
}

// Of a share from a half on.
double Deviate(double dShare) {
    static const std::array<double, kSteps + 1> adDeviates = Deviates();
    const double d = std::min((dShare - 0.5) / (0.5 - kLeastShare), 1.0) * kSteps;
    const auto n = std::min(static_cast<std::size_t>(d), static_cast<std::size_t>(kSteps - 1));
    return std::lerp(adDeviates[n], adDeviates[n + 1], d - static_cast<double>(n));
}

} // namespace

double HalfwayBetween(double dShare, double dNextShare) {
    const double dInside = Deviate(1 - dShare), dOutside = Deviate(dNextShare);
    return dInside / (dInside + dOutside);
}

} // namespace tools

#pragma once

#include <cmath>
#include <functional>
#include <map>
#include <string>

namespace tools {

// By what a measured pair is judged; a product may have limits of its own.
struct Limits {
    // Degrees, largest magnitude of a rescaled angle. Below 1 degree raw and rescaled angles are the same;
    // a limit there holds for the raw angle, since those from 1 degree on are rescaled to less.
    double dRescaled = 2.0;

    // Degrees by which the library's angle and the second reading's may differ, twice the latter's standard
    // uncertainty counted: an angle that is off by more may else seem to differ by less. Clean pairs stay far
    // below it; what turns an angle by more is worth a second look.
    double dMaxDifference = 0.05;

    // Degrees. A clean picture's angles are known several times better.
    double dMaxUncertainty = 0.015;

    // Of trust numbers, by their keys in JSON, where they differ from those of the numbers' table.
    std::map<std::string, double, std::less<>> tTrust = {};

    // The raw angle that is rescaled to the limit: 2.5.
    double Raw() const { return HoldsForRaw() ? dRescaled : (dRescaled - 0.2) * 2.3 / 1.8 + 0.2; }
    bool HoldsForRaw() const { return dRescaled < 1; }
    bool IsBeyond(double dAngle) const { return std::fabs(dAngle) > dRescaled; } // the one that it holds for
};

} // namespace tools

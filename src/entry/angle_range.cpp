#include "entry/angle_range.h"

#include "core/to_integer.h"

#include <cmath>

namespace orvex {

double RescaledAngle(double dAngle) {
    // The truncated angle is compared, not the angle: 0.2 only tests it for zero, on purpose.
    if (std::fabs(static_cast<double>(ToInt(dAngle))) < 0.2)
        return dAngle;
    return dAngle > 0.0 ? (dAngle - 0.2) * 1.8 / 2.3 + 0.2 : (dAngle + 0.2) * 1.8 / 2.3 - 0.2;
}

bool IsOutOfRange(double dAngle) {
    return dAngle > 2.0 || dAngle < -2.0;
}

} // namespace orvex

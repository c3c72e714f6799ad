#pragma once

namespace orvex {

// Rescales an angle for the caller, degrees: magnitudes of 1.0 and more are compressed toward +-0.2.
double RescaledAngle(double dAngle);

// Whether a rescaled angle lies outside [-2.0, 2.0]. A NaN does not.
bool IsOutOfRange(double dAngle);

} // namespace orvex

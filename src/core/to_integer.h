#pragma once

#include <concepts>
#include <limits>

namespace orvex {

// The one conversion from floating point to integer: toward zero, NaN to 0, saturating at the type's limits.
// That is what the phone's processor does; a plain cast is undefined for such values and differs between
// CPUs.
template <std::signed_integral Integer>
requires(sizeof(Integer) <= sizeof(int)) constexpr Integer ToInteger(double dValue) {
    using Limits = std::numeric_limits<Integer>;
    if (dValue != dValue)
        return 0;
    if (dValue <= static_cast<double>(Limits::min()))
        return Limits::min();
    if (dValue >= static_cast<double>(Limits::max()))
        return Limits::max();
    return static_cast<Integer>(dValue);
}

constexpr int ToInt(double dValue) {
    return ToInteger<int>(dValue);
}

} // namespace orvex

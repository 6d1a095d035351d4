// The one rounding and the one truncation. Both saturate, so that absurd input never overflows.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace corvane {

// Towards zero. NaN gives 0.
constexpr int32_t Truncate(double value) {
    if (!(value > -2147483648.0)) return value == value ? std::numeric_limits<int32_t>::min() : 0;
    if (value >= 2147483647.0) return std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(value);
}

// To the nearest integer, halves away from zero.
inline int32_t Round(double value) { return Truncate(std::round(value)); }

}  // namespace corvane

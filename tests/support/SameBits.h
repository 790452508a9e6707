// Equality of doubles to the bit.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

/// The same bits, or both NaN.
inline bool sameBits(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) ||
         std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

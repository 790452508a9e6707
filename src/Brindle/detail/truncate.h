// Truncating doubles to `int`. Private: not installed. Used by timing and colourSpace, whose
// results are defined for values that no `int` holds.
#pragma once

#include <climits>

namespace brindle::detail {

/// Truncates toward zero as x86-64 does: what does not fit, NaN included, becomes INT_MIN.
inline int truncateToInt(double value) {
  constexpr double kLimit = 2147483648.0;
  return value > -kLimit - 1.0 && value < kLimit ? static_cast<int>(value) : INT_MIN;
}

}  // namespace brindle::detail

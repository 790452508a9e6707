// Truncating doubles to `int`. Private: not installed. Used by timing and colourSpace, whose
// results are defined for values that no `int` holds.
#pragma once

#include <emmintrin.h>

namespace brindle::detail {

/// Truncates toward zero as x86-64 does: what does not fit, NaN included, becomes INT_MIN.
inline int truncateToInt(double value) {
  return _mm_cvttsd_si32(_mm_set_sd(value));
}

}  // namespace brindle::detail

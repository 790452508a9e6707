// The tolerance below which the toolbox takes a number for zero. Private: not installed.
#pragma once

namespace brindle::detail {

/// 1e-6 in single precision; as a double it is 9.999999974752427e-7.
inline constexpr float kNearZeroF = 1e-6F;
inline constexpr double kNearZero = static_cast<double>(kNearZeroF);
static_assert(kNearZero == 9.999999974752427e-7);

/// NaN is not zero.
inline bool isNearZero(double value) {
  return -kNearZero <= value && value <= kNearZero;
}
inline bool isNearZero(float value) {
  return -kNearZeroF <= value && value <= kNearZeroF;
}

}  // namespace brindle::detail

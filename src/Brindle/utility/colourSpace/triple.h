// A colour as the three numbers that the conversions read and write. Private: not installed. Used
// by the sources of colourSpace.
#pragma once

#include <array>

namespace brindle::detail {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

/// The hue of greys and black.
inline constexpr double kNoHue = -1.0;

/// A row of a matrix times a colour. The order of the sum is part of the result.
inline double sumOf(const Triple& weights, double first, double second, double third) {
  return weights[0] * first + weights[1] * second + weights[2] * third;
}

inline void store(double* out, double first, double second, double third) {
  out[0] = first;
  out[1] = second;
  out[2] = third;
}

}  // namespace brindle::detail

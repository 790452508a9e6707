// Points of the plane and which way three of them turn. Private: not installed. Used by the
// polygons and by the mask that asks on which side of a segment it lies.
#pragma once

#include <cstddef>
#include <cstdint>

#include "detail/wrap.h"

namespace brindle::detail {

struct Point {
  double x, y;
};

inline Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}

/// Vertex `i` of interleaved x, y pairs.
inline Point vertexOf(const double* poly, int i) {
  const double* const values = poly + 2 * static_cast<std::ptrdiff_t>(i);
  return {values[0], values[1]};
}

/// Twice the signed area of the triangle: above 0 where p2 lies to the left of the line from p0 to
/// p1, y pointing up. The order of the products is part of the result.
inline double turn(Point p0, Point p1, Point p2) {
  return (p2.y - p0.y) * (p1.x - p0.x) - (p1.y - p0.y) * (p2.x - p0.x);
}

/// The same of integer points, each an x, y pair, in 32 bits that wrap around.
inline std::int32_t wrappedTurn(const int* p0, const int* p1, const int* p2) {
  using vorquell::detail::wrappingMultiply;
  using vorquell::detail::wrappingSubtract;
  return wrappingSubtract(
      wrappingMultiply(wrappingSubtract(p2[1], p0[1]), wrappingSubtract(p1[0], p0[0])),
      wrappingMultiply(wrappingSubtract(p1[1], p0[1]), wrappingSubtract(p2[0], p0[0])));
}

}  // namespace brindle::detail

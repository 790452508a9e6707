#include "Brindle/utility/polygon.h"

#include <cstddef>

#include "Brindle/detail/turn.h"

double isLeft2DLineDouble(double* p0, double* p1, double* p2) {
  using brindle::detail::vertexOf;
  return brindle::detail::turn(vertexOf(p0, 0), vertexOf(p1, 0), vertexOf(p2, 0));
}

double isLeft2DLine(int* p0, int* p1, int* p2) {
  return static_cast<double>(brindle::detail::wrappedTurn(p0, p1, p2));
}

void scalePolygon2D(double* poly, int n, double scale) {
  if (poly == nullptr || n < 1) return;
  const std::ptrdiff_t end = 2 * static_cast<std::ptrdiff_t>(n);
  double mean[2] = {0.0, 0.0};
  for (std::ptrdiff_t i = 0; i < end; ++i) mean[i % 2] += poly[i];
  for (double& value : mean) value /= static_cast<double>(n);
  for (std::ptrdiff_t i = 0; i < end; ++i) {
    poly[i] = (poly[i] - mean[i % 2]) * scale + mean[i % 2];
  }
}

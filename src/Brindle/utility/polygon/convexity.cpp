#include "Brindle/utility/polygon.h"

#include "Brindle/detail/turn.h"

namespace {

using brindle::detail::Point;
using brindle::detail::vertexOf;

/// Calls `visit` with the index of each vertex that turns against the orientation, until it returns
/// false.
template <class Visit>
void visitReflexVertices(const double* poly, int n, bool clockwise, Visit visit) {
  Point previous = vertexOf(poly, n - 1);
  Point current = vertexOf(poly, 0);
  for (int i = 0; i < n; ++i) {
    const Point next = vertexOf(poly, i + 1 < n ? i + 1 : 0);
    const double value = brindle::detail::turn(previous, current, next);
    if ((clockwise ? value > 0.0 : value < 0.0) && !visit(i)) return;
    previous = current;
    current = next;
  }
}

}  // namespace

bool is2DConvexPolygon(double* poly, int n, bool clockwise) {
  if (n <= 4) return true;
  bool isConvex = true;
  visitReflexVertices(poly, n, clockwise, [&](int) { return isConvex = false; });
  return isConvex;
}

void getBigAngleIndices2DPolygon(std::list<int>& indices, double* poly, int n, bool clockwise) {
  indices.clear();
  if (n <= 0) return;
  visitReflexVertices(poly, n, clockwise, [&](int i) {
    indices.push_back(i);
    return true;
  });
}

#include "Brindle/utility/polygon.h"

#include <cstddef>

#include "Brindle/detail/turn.h"

namespace {

using brindle::detail::Point;
using brindle::detail::vertexOf;

/// Calls `visit` with both ends, the later vertex first, of each edge that has one end below `y`
/// and the other one at `y` or above. An edge with a NaN may be visited, too: no comparison with
/// what is computed from it holds.
template <class Visit>
void visitEdgesAcross(const double* poly, int n, double y, Visit visit) {
  int previous = n - 1;
  bool previousIsBelow = vertexOf(poly, previous).y < y;
  for (int i = 0; i < n; ++i) {
    const bool isBelow = vertexOf(poly, i).y < y;
    if (isBelow != previousIsBelow) visit(vertexOf(poly, i), vertexOf(poly, previous));
    previousIsBelow = isBelow;
    previous = i;
  }
}

bool allVerticesInside(double* poly, int n, double* outer, int nOuter) {
  for (int i = 0; i < n; ++i) {
    double* const vertex = poly + 2 * static_cast<std::ptrdiff_t>(i);
    if (!pointInPolygon2DWindingNumber(outer, nOuter, vertex)) return false;
  }
  return true;
}

}  // namespace

bool pointInPolygon2DCrossingNumber(double* poly, int n, double* p) {
  if (n < 1 || p == nullptr || poly == nullptr) return false;
  const Point point = vertexOf(p, 0);
  bool isInside = false;
  visitEdgesAcross(poly, n, point.y, [&](Point a, Point b) {
    const double crossingX = a.x + (b.x - a.x) * ((point.y - a.y) / (b.y - a.y));
    if (point.x > crossingX) isInside = !isInside;
  });
  return isInside;
}

bool pointInPolygon2DWindingNumber(double* poly, int n, double* p) {
  if (n < 1) return false;
  const Point point = vertexOf(p, 0);
  int winding = 0;
  visitEdgesAcross(poly, n, point.y, [&](Point a, Point b) {
    const double side = brindle::detail::turn(a, b, point);
    if (a.y < point.y) {
      winding += side < 0.0;
    } else {
      winding -= side > 0.0;
    }
  });
  return winding != 0;
}

bool pointInPolygon2D(double* poly, int n, double* p, POINT_IN_POLYGON_METHOD method) {
  return method == PIP_CROSSING_NUMBER ? pointInPolygon2DCrossingNumber(poly, n, p)
                                       : pointInPolygon2DWindingNumber(poly, n, p);
}

int polygonCompletelyInside2D(double* polyA, int nA, double* polyB, int nB) {
  const bool isAInB = allVerticesInside(polyA, nA, polyB, nB);
  const bool isBInA = allVerticesInside(polyB, nB, polyA, nA);
  if (isAInB == isBInA) return 0;
  return isAInB ? 1 : 2;
}

bool lineSegmentInsideConvexHull(double* p0, double* p1, double* hull, int n) {
  return pointInPolygon2DWindingNumber(hull, n, p0) && pointInPolygon2DWindingNumber(hull, n, p1);
}

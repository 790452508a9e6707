#include "Brindle/utility/polygon.h"

#include <cmath>
#include <optional>

#include "Brindle/detail/nearZero.h"
#include "Brindle/detail/turn.h"

namespace {

using brindle::detail::Point;
using brindle::detail::vertexOf;

struct Edge {
  Point start, direction;
};

Edge edgeOf(const double* poly, int n, int i) {
  const Point start = vertexOf(poly, i);
  return {start, vertexOf(poly, i + 1 < n ? i + 1 : 0) - start};
}

/// Where `a` and `b` cross, as a point of `a`. By Cramer's rule: a.start + alongA * a.direction is
/// b.start + alongB * b.direction.
std::optional<Point> crossingOf(const Edge& a, const Edge& b) {
  const Point between = b.start - a.start;
  const double cross = a.direction.y * b.direction.x - a.direction.x * b.direction.y;
  const double crossA = b.direction.x * between.y - b.direction.y * between.x;
  const double crossB = a.direction.x * between.y - a.direction.y * between.x;
  // Nearly all pairs end here, without a division: their quotients lie outside (-1, 1) or are NaN.
  // The other quotients do not round to 1: below 1, those of doubles are at most 1 - 2^-53.
  const double limit = std::abs(cross);
  if (!(std::abs(crossA) < limit) || !(std::abs(crossB) < limit)) return std::nullopt;
  if (brindle::detail::isNearZero(cross)) return std::nullopt;

  const double alongA = crossA / cross;
  const double alongB = crossB / cross;
  if (alongA < 0.0 || alongB < 0.0) return std::nullopt;
  return Point{a.start.x + a.direction.x * alongA, a.start.y + a.direction.y * alongA};
}

/// Crosses all edges of A with the first `edgesB` edges of B: a segment is a polygon of two edges,
/// there and back, of which only the first counts.
bool findCrossings(const double* polyA, int nA, const double* polyB, int nB, int edgesB,
                   std::list<double>* xs, std::list<double>* ys) {
  const bool firstIsEnough = xs == nullptr && ys == nullptr;
  bool found = false;
  for (int i = 0; i < nA; ++i) {
    const Edge a = edgeOf(polyA, nA, i);
    for (int j = 0; j < edgesB; ++j) {
      const std::optional<Point> crossing = crossingOf(a, edgeOf(polyB, nB, j));
      if (!crossing) continue;
      if (firstIsEnough) return true;
      if (xs != nullptr) xs->push_back(crossing->x);
      if (ys != nullptr) ys->push_back(crossing->y);
      found = true;
    }
  }
  return found;
}

}  // namespace

bool polygonIntersect2D(double* polyA, int nA, double* polyB, int nB, std::list<double>* xs,
                        std::list<double>* ys) {
  if (nB < 1 || nA < 1 || polyB == nullptr || polyA == nullptr) return false;
  return findCrossings(polyA, nA, polyB, nB, nB, xs, ys);
}

bool lineSegmentPolygonIntersect(double* p0, double* p1, double* poly, int n, std::list<double>* xs,
                                 std::list<double>* ys) {
  if (poly == nullptr || n < 1) return false;
  const double segment[] = {p0[0], p0[1], p1[0], p1[1]};
  return findCrossings(poly, n, segment, 2, 1, xs, ys);
}

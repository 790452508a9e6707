#include "Brindle/utility/polygon.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "Brindle/detail/nearZero.h"

namespace {

struct Point {
  double x, y;
};

Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}

Point vertexOf(const double* poly, int i) {
  const double* const values = poly + 2 * static_cast<std::ptrdiff_t>(i);
  return {values[0], values[1]};
}

double turn(Point p0, Point p1, Point p2) {
  return (p2.y - p0.y) * (p1.x - p0.x) - (p1.y - p0.y) * (p2.x - p0.x);
}

/// Calls `visit` with the index of each vertex that turns against the orientation, until it returns
/// false.
template <class Visit>
void visitReflexVertices(const double* poly, int n, bool clockwise, Visit visit) {
  Point previous = vertexOf(poly, n - 1);
  Point current = vertexOf(poly, 0);
  for (int i = 0; i < n; ++i) {
    const Point next = vertexOf(poly, i + 1 < n ? i + 1 : 0);
    const double value = turn(previous, current, next);
    if ((clockwise ? value > 0.0 : value < 0.0) && !visit(i)) return;
    previous = current;
    current = next;
  }
}

struct Edge {
  Point start, direction;
};

Edge edgeOf(const double* poly, int n, int i) {
  const Point start = vertexOf(poly, i);
  return {start, vertexOf(poly, i + 1 < n ? i + 1 : 0) - start};
}

/// Where `a` and `b` cross, as a point of `a`.
std::optional<Point> crossingOf(const Edge& a, const Edge& b) {
  const Point between = b.start - a.start;
  const double cross = a.direction.y * b.direction.x - a.direction.x * b.direction.y;
  const double crossA = b.direction.x * between.y - b.direction.y * between.x;
  const double crossB = a.direction.x * between.y - a.direction.y * between.x;
  // Nearly all pairs end here, without a division: their quotients lie outside (-1, 1) or are no
  // numbers. Those of the others do not round to 1.
  const double limit = std::abs(cross);
  if (!(std::abs(crossA) < limit) || !(std::abs(crossB) < limit)) return std::nullopt;
  if (brindle::detail::isNearZero(cross)) return std::nullopt;

  const double alongA = crossA / cross;
  const double alongB = crossB / cross;
  if (alongA < 0.0 || alongB < 0.0) return std::nullopt;
  return Point{a.start.x + a.direction.x * alongA, a.start.y + a.direction.y * alongA};
}

/// Crosses all edges of A with the first `edgesB` edges of B.
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

/// Calls `visit` with both ends, the later vertex first, of each edge that has one end below `y`
/// and the other one at `y` or above. Ends that are not numbers may be visited, too.
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

/// The turn value of integer points, in 32 bits that wrap around.
std::int32_t wrappedTurn(const int* p0, const int* p1, const int* p2) {
  const auto difference = [](int a, int b) {
    return static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b);
  };
  return static_cast<std::int32_t>(difference(p2[1], p0[1]) * difference(p1[0], p0[0]) -
                                   difference(p1[1], p0[1]) * difference(p2[0], p0[0]));
}

/// Integer points as x, y pairs.
using Index = std::ptrdiff_t;

const int* pointAt(const int* points, Index i) {
  return points + 2 * i;
}

/// A hull under construction in the caller's buffer.
class HullChain {
 public:
  HullChain(int* points, Index capacity) : points_(points), capacity_(capacity) {}

  Index size() const { return size_; }

  /// Returns false, and adds nothing, when the chain is full.
  bool append(const int* point) {
    if (size_ == capacity_) return false;
    std::copy_n(point, 2, points_ + 2 * size_);
    ++size_;
    return true;
  }

  /// Walks from points[first] to points[last], in either direction, and keeps the chain turning
  /// left. What was in the chain before stays. Returns false when the chain became full on the way.
  bool extend(const int* points, Index first, Index last) {
    const Index fixed = size_;
    const int* const baseStart = pointAt(points_, fixed - 1);
    const int* const baseEnd = pointAt(points, last);
    const Index step = first <= last ? 1 : -1;
    for (Index i = first; i != last; i += step) {
      const int* const point = pointAt(points, i);
      if (wrappedTurn(baseStart, baseEnd, point) >= 0) continue;
      if (!appendTurningLeft(point, fixed)) return false;
    }
    return appendTurningLeft(baseEnd, fixed);
  }

 private:
  bool appendTurningLeft(const int* point, Index fixed) {
    while (size_ > fixed &&
           wrappedTurn(pointAt(points_, size_ - 2), pointAt(points_, size_ - 1), point) <= 0) {
      --size_;
    }
    return append(point);
  }

  int* points_;
  Index capacity_;
  Index size_ = 0;
};

/// The hull of points that all have the same x.
int uprightHull(const int* points, Index last, int* hull) {
  HullChain chain(hull, 3);
  chain.append(points);
  chain.append(pointAt(points, last));
  if (pointAt(points, last)[1] != points[1]) chain.append(pointAt(points, last));
  return static_cast<int>(chain.size());
}

}  // namespace

double isLeft2DLineDouble(double* p0, double* p1, double* p2) {
  return turn(vertexOf(p0, 0), vertexOf(p1, 0), vertexOf(p2, 0));
}

double isLeft2DLine(int* p0, int* p1, int* p2) {
  return static_cast<double>(wrappedTurn(p0, p1, p2));
}

bool boxboxIntersect2DInt(int left1, int left2, int right1, int right2, int top1, int top2,
                          int bottom1, int bottom2) {
  return left1 <= right2 && right1 >= left2 && top1 >= bottom2 && bottom1 <= top2;
}

int boxSphereIntersect(double* boxMin, double* boxMax, double* center, double radiusSq, int dim) {
  bool isInside = true;
  double lastNear = 0.0;
  double farSum = 0.0;      // the squared distance to the farthest corner
  double outsideSum = 0.0;  // the squared distance to the box
  for (int i = 0; i < dim; ++i) {
    const double toMax = (center[i] - boxMax[i]) * (center[i] - boxMax[i]);
    const double toMin = (center[i] - boxMin[i]) * (center[i] - boxMin[i]);
    isInside = isInside && boxMin[i] < center[i] && center[i] < boxMax[i];
    lastNear = std::min(toMax, toMin);
    farSum += std::max(toMax, toMin);
    if (center[i] <= boxMin[i]) {
      outsideSum += toMin;
    } else if (center[i] >= boxMax[i]) {
      outsideSum += toMax;
    }
  }
  if (isInside) {
    if (lastNear >= radiusSq) return 3;
    return radiusSq >= farSum ? 2 : 1;
  }
  if (radiusSq < outsideSum) return 0;
  return farSum >= radiusSq ? 2 : 1;
}

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
    const double side = turn(a, b, point);
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

int chainHull_2D(int* points, int n, int* hull) {
  if (n < 1) return 0;
  const Index last = static_cast<Index>(n) - 1;
  Index leftEnd = 0;  // the last one of the leftmost points
  while (leftEnd < last && pointAt(points, leftEnd + 1)[0] == points[0]) ++leftEnd;
  if (leftEnd == last) return uprightHull(points, last, hull);
  Index rightBegin = last;  // the first one of the rightmost points
  while (pointAt(points, rightBegin - 1)[0] == pointAt(points, last)[0]) --rightBegin;

  HullChain chain(hull, last + 2);
  chain.append(points);
  chain.extend(points, leftEnd + 1, rightBegin);
  if (rightBegin != last) chain.append(pointAt(points, last));
  if (chain.extend(points, rightBegin - 1, leftEnd) && leftEnd != 0) chain.append(points);
  return static_cast<int>(chain.size());
}

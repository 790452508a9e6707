#include "Brindle/utility/polygon.h"

#include <array>
#include <climits>
#include <random>

#include "reference/PlainGeometry.h"
#include "support/Call.h"

namespace {

using support::checkTable;
using Doubles = std::vector<double>;
using IntPoints = std::vector<std::array<int, 2>>;

TEST(Boxes, MeetOthersAndSpheresAsTheTableSays) {
  checkTable("boxes.txt", {CALLS(boxboxIntersect2DInt), CALLS(boxSphereIntersect)});
}

TEST(PolygonShape, TurnsAndScalesAsTheTableSays) {
  checkTable("polygon-shape.txt",
             {CALLS(isLeft2DLine), CALLS(isLeft2DLineDouble), CALLS(is2DConvexPolygon),
              CALLS(getBigAngleIndices2DPolygon), CALLS(scalePolygon2D)});
}

TEST(PolygonCrossings, AreHalfOpenAndNeverParallel) {
  checkTable("polygon-crossings.txt",
             {CALLS(lineSegmentPolygonIntersect), CALLS(polygonIntersect2D)});
}

TEST(PolygonInside, IsToldAsTheTableSays) {
  checkTable("polygon-inside.txt",
             {CALLS(pointInPolygon2D), CALLS(pointInPolygon2DCrossingNumber),
              CALLS(pointInPolygon2DWindingNumber), CALLS(polygonCompletelyInside2D),
              CALLS(lineSegmentInsideConvexHull)});
  EXPECT_EQ(PIP_WINDING_NUMBER, 1);  // as rows have it
}

Doubles randomPolygon(std::mt19937& engine, unsigned int leastVertices, bool hasGrid) {
  std::uniform_real_distribution<double> real(-3, 3);
  Doubles poly(2 * (leastVertices + engine() % 9));
  for (double& value : poly) value = hasGrid ? int(engine() % 7) - 3 : real(engine);
  return poly;
}

TEST(PolygonsAtRandom, AgreeWithThePlainForms) {
  std::mt19937 engine(2);
  for (int round = 0; round < 20000; ++round) {
    SCOPED_TRACE(round);
    Doubles a = randomPolygon(engine, 1, round % 2 == 0);
    Doubles b = randomPolygon(engine, 2, round % 2 == 0);
    for (std::size_t i = 0; i < 2 && round % 4 == 3; ++i) {  // as good as on the first edge
      b[i] = a[i] + (a[(i + 2) % a.size()] - a[i]) * .37;
    }
    double *const pA = a.data(), *const pB = b.data();
    const int nA = static_cast<int>(a.size() / 2), nB = static_cast<int>(b.size() / 2);
    EXPECT_SAME(pointInPolygon2DCrossingNumber(pA, nA, pB), plainPointInPolygon(pA, nA, pB, false));
    EXPECT_SAME(pointInPolygon2DWindingNumber(pA, nA, pB), plainPointInPolygon(pA, nA, pB, true));
    for (const int edges : {nB, 1}) {
      const auto intersect = [&](std::list<double>* xs, std::list<double>* ys) {
        return edges == 1 ? lineSegmentPolygonIntersect(pB, pB + 2, pA, nA, xs, ys)
                          : polygonIntersect2D(pA, nA, pB, nB, xs, ys);
      };
      std::list<double> xs, ys, plainXs, plainYs;
      const bool any = plainCrossings(pA, nA, pB, nB, edges, &plainXs, &plainYs);
      EXPECT_SAME(intersect(nullptr, nullptr), any);
      EXPECT_SAME(intersect(&xs, &ys), any);
      EXPECT_SAME(xs, plainXs);
      EXPECT_SAME(ys, plainYs);
    }
  }
}

/// Runs a hull function; after the n + 1 points that it may fill stands a guard.
template <class Build>
IntPoints hullOf(IntPoints points, const Build& build) {
  const std::array guard{-99, -99};
  const int n = static_cast<int>(points.size());
  points.resize(points.size() + 1);  // so that there is a first one
  IntPoints hull(points.size() + 1, guard);
  const int size = build(points[0].data(), n, hull[0].data());
  EXPECT_SAME(hull.back(), guard);
  hull.resize(static_cast<std::size_t>(size));
  return hull;
}

TEST(PolygonHull, OfPointsWithEqualXIsNotClosed) {
  const std::pair<IntPoints, IntPoints> cases[] = {
      {{}, {}},
      {{{4, 5}}, {{4, 5}, {4, 5}}},
      {{{1, 1}, {1, 2}, {1, 3}}, {{1, 1}, {1, 3}, {1, 3}}},
      {{{0, 0}, {0, 5}, {0, 9}, {3, 3}, {9, 0}, {9, 9}}, {{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}}};
  for (const auto& [points, hull] : cases) EXPECT_SAME(hullOf(points, chainHull_2D), hull);
}

TEST(PolygonHull, StaysInItsRoomWhereTurnsWrap) {
  std::mt19937 engine(1);
  int cuts = 0;
  for (std::size_t round = 0; round < 100000; ++round) {
    const int limit = std::array{3, 23170, INT_MAX, INT_MAX}[round % 4];
    std::uniform_int_distribution<int> coordinate(-limit, limit);
    IntPoints points(4 + engine() % 12);
    const int mask = round % 4 < 3 ? -1 : -65536;  // with round coordinates, turns wrap to 0
    for (auto& point : points) point = {coordinate(engine), coordinate(engine) & mask};
    // With several leftmost or rightmost points, both chains may want the same ones.
    const std::size_t ends = 2 + engine() % 3;
    for (std::size_t i = 0; i < ends; ++i) points[i][0] = i % 2 == 0 ? -limit : limit;
    std::sort(points.begin(), points.end());
    bool wasCut = false;
    const auto plain = [&](int* p, int n, int* hull) { return plainHull(p, n, hull, wasCut); };
    EXPECT_SAME(hullOf(points, chainHull_2D), hullOf(points, plain)) << "round " << round;
    if (limit < INT_MAX) {
      EXPECT_FALSE(wasCut) << "round " << round;
    }
    cuts += wasCut;
  }
  EXPECT_GT(cuts, 100);
}

}  // namespace

#include "Brindle/utility/polygon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <random>
#include <string>
#include <vector>

#include "reference/PlainGeometry.h"

namespace {

using Doubles = std::vector<double>;

/// A polygon or a point; the functions want a writable one.
struct Shape : Doubles {
  using Doubles::Doubles;
  operator double*() const { return const_cast<double*>(data()); }
  int n() const { return static_cast<int>(size() / 2); }
};
const Shape kSquare = {0, 0, 1, 0, 1, 1, 0, 1};
const Shape kPentagram = {0, 10, 6, -8, -9, 3, 9, 3, -6, -8};  // winds twice around its middle

TEST(Turn, WrapsAroundIn32BitsForIntegersOnly) {
  int p[] = {INT_MIN, 0, INT_MAX, 0, 5, 7};
  EXPECT_EQ(isLeft2DLine(p, p + 2, p + 4), -7);
  EXPECT_EQ(isLeft2DLineDouble(Shape{INT_MIN, 0}, Shape{INT_MAX, 0}, Shape{5, 7}), 30064771065);
}

TEST(Boxes, ThatTouchIntersect) {
  for (int at = 0; at < 400; ++at) {
    const int x = at % 20 - 5, y = at / 20 - 5;
    const bool meets = -2 <= x && x <= 9 && -3 <= y && y <= 8;
    EXPECT_EQ(boxboxIntersect2DInt(0, x, 9, x + 2, 8, y + 3, 0, y), meets) << x << ' ' << y;
  }
}

TEST(BoxAndSphere, CodesChangeMeaningWithTheCentre) {
  // clang-format off
  const struct { double x, z, radiusSq; int code, dim = 3; } cases[] = {
      {.5, .5, .25, 3}, {.5, .5, .5, 1}, {.5, .5, .75, 2}, {.1, .5, .2, 3}, {.5, .1, .2, 1},
      {.1, .5, .9, 1}, {9, 9, 0, 3, 0}, {9, 9, 1, 2, -1}, {.5, 2, .2, 3, 2},
      {2, .5, .5, 0}, {2, .5, 1, 2}, {2, .5, 4.5, 2}, {2, .5, 4.75, 1}, {1, .5, 0, 2},
      {0, .5, 2, 1}, {-1, -1, 1.75, 0}, {-1, -1, 2, 2}, {2, -1, 8.5, 1}};
  // clang-format on
  for (const auto& [x, z, radiusSq, code, dim] : cases) {
    const Shape least = {0, 0, 0}, greatest = {1, 1, 1}, centre = {x, .5, z};
    EXPECT_EQ(boxSphereIntersect(least, greatest, centre, radiusSq, dim), code)
        << x << ' ' << z << ' ' << radiusSq;
  }
}

TEST(Convexity, DoesNotLookAtQuadrilaterals) {
  // clang-format off
  const struct { bool clockwise; Shape poly; std::list<int> reflex; } cases[] = {
      {false, {}, {}},
      {false, {0, 0, 4, 0, 1, 1, 0, 4}, {2}},
      {false, {0, 0, 1, 0, 2, 0, 2, 2, 0, 2}, {}},
      {true, {0, 0, 1, 0, 2, 0, 2, 2, 0, 2}, {0, 2, 3, 4}},
      {false, {1, 1, 0, 4, 0, 0, 4, 0, 4, 4}, {0}},
      {false, {0, 4, 0, 0, 4, 0, 4, 4, 1, 1}, {4}}};
  // clang-format on
  for (const auto& [clockwise, poly, reflex] : cases) {
    std::list<int> indices = {99};
    getBigAngleIndices2DPolygon(indices, poly, poly.n(), clockwise);
    EXPECT_EQ(indices, reflex);
    EXPECT_EQ(is2DConvexPolygon(poly, poly.n(), clockwise), poly.n() <= 4 || reflex.empty());
  }
}

TEST(Crossings, AreHalfOpenAndNeverParallel) {
  const auto xsOf = [](const Shape& p0, const Shape& p1, const Shape& poly) {
    std::list<double> xs = {7}, ys;
    lineSegmentPolygonIntersect(p0, p1, poly, poly.n(), &xs, &ys);
    return Doubles(xs.begin(), xs.end());
  };
  EXPECT_EQ(xsOf({-1, .5}, {3, .5}, kSquare), (Doubles{7, 1, 0}));
  EXPECT_EQ(xsOf({1, .5}, {3, .5}, kSquare), (Doubles{7, 1})) << "starts on a side";
  EXPECT_EQ(xsOf({-1, .5}, {0, .5}, kSquare), Doubles{7}) << "ends on a side";
  EXPECT_EQ(xsOf({0, 0}, {-1, -2}, kSquare), (Doubles{7, 0})) << "starts in a vertex";
  EXPECT_EQ(xsOf({.2, 0}, {.8, 0}, kSquare), Doubles{7}) << "lies along a side";
  EXPECT_EQ(xsOf({0, .5}, {9.999999974752427e-7, .5}, {0, 0, 0, 1}), Doubles{7});
  EXPECT_EQ(xsOf({0, .5}, {1e-6, .5}, {0, 0, 0, 1}), (Doubles{7, 0, 0}));
  EXPECT_FALSE(lineSegmentPolygonIntersect(nullptr, nullptr, nullptr, 4, nullptr, nullptr));
  EXPECT_FALSE(lineSegmentPolygonIntersect(nullptr, nullptr, kSquare, 0, nullptr, nullptr));
  EXPECT_FALSE(polygonIntersect2D(nullptr, 4, kSquare, 4, nullptr, nullptr));
  EXPECT_FALSE(polygonIntersect2D(kSquare, 4, nullptr, 4, nullptr, nullptr));
}

TEST(PointInPolygon, TellsSidesAndWindings) {
  for (const int method : {0, 1, 2}) {
    const auto isInside = [&](const Shape& poly, const Shape& p) {
      return pointInPolygon2D(poly, poly.n(), p, POINT_IN_POLYGON_METHOD(method));
    };
    std::string square;
    for (int at = 0; at < 9; ++at) {
      square += isInside(kSquare, {at % 3 / 2.0, 1 - at / 3 / 2.0}) ? 'i' : 'o';
    }
    EXPECT_EQ(square, "oiioiiooo") << method;
    EXPECT_EQ(isInside(kPentagram, {0, 0}), method != 0);
    EXPECT_FALSE(isInside({}, {0, 0}));
  }
  EXPECT_FALSE(pointInPolygon2DCrossingNumber(nullptr, 4, kSquare));
  EXPECT_FALSE(pointInPolygon2DCrossingNumber(kSquare, 4, nullptr));
}

TEST(Containment, TestsVerticesOnly) {
  const Shape outer = {0, 0, 9, 0, 9, 9, 0, 9}, inner = {1, 1, 3, 1, 2, 3}, none;
  const Shape bar = {-1, 4, 10, 4, 10, 5, -1, 5}, in = {9, 9}, out = {0, 1};
  const auto code = [](const Shape& a, const Shape& b) {
    return polygonCompletelyInside2D(a, a.n(), b, b.n());
  };
  const std::vector<int> codes = {code(inner, outer), code(outer, inner), code(bar, outer),
                                  code(none, outer),  code(outer, none),  code(none, none)};
  EXPECT_EQ(codes, (std::vector{1, 2, 0, 1, 2, 0}));
  EXPECT_EQ(code({0, 0, 1, 0, 0, 1}, kPentagram), 1);
  EXPECT_TRUE(lineSegmentInsideConvexHull(Shape{0, 0}, Shape{1, 0}, kPentagram, 5));
  EXPECT_TRUE(lineSegmentInsideConvexHull(in, in, outer, 4));
  EXPECT_FALSE(lineSegmentInsideConvexHull(in, out, outer, 4));
  EXPECT_FALSE(lineSegmentInsideConvexHull(out, nullptr, outer, 4));
}

TEST(Scaling, IsAboutTheMeanOfTheVertices) {
  Shape poly = {0, 0, 3, 0, 3, 3, 77};
  scalePolygon2D(poly, 3, 2);
  scalePolygon2D(poly, 0, 2);
  scalePolygon2D(nullptr, 3, 2);
  EXPECT_EQ(poly, (Shape{-2, -1, 4, -1, 4, 5, 77}));
}

using IntPoints = std::vector<std::array<int, 2>>;

/// Runs a hull function; behind the n + 1 points that it may fill stands a guard.
template <class Build>
IntPoints hullOf(IntPoints points, Build build) {
  const int n = static_cast<int>(points.size());
  points.resize(points.size() + 1);  // so that there is a first one
  IntPoints hull(points.size() + 1, {-99, -99});
  const int size = build(points[0].data(), n, hull[0].data());
  EXPECT_EQ(hull.back(), (std::array{-99, -99}));
  hull.resize(static_cast<std::size_t>(size));
  return hull;
}

TEST(Hull, OfPointsWithEqualXIsNotClosed) {
  const std::pair<IntPoints, IntPoints> cases[] = {
      {{}, {}},
      {{{4, 5}}, {{4, 5}, {4, 5}}},
      {{{1, 1}, {1, 2}, {1, 3}}, {{1, 1}, {1, 3}, {1, 3}}},
      {{{0, 0}, {0, 5}, {0, 9}, {3, 3}, {9, 0}, {9, 9}}, {{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}}};
  for (const auto& [points, hull] : cases) EXPECT_EQ(hullOf(points, chainHull_2D), hull);
}

TEST(Hull, StaysInItsRoomWhereTurnsWrap) {
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
    EXPECT_EQ(hullOf(points, chainHull_2D), hullOf(points, plain)) << round;
    EXPECT_TRUE(!wasCut || limit == INT_MAX) << round;
    cuts += wasCut;
  }
  EXPECT_GT(cuts, 100);
}

TEST(RandomPolygons, AgreeWithThePlainFormsBitForBit) {
  std::mt19937 engine(2);
  std::uniform_real_distribution<double> real(-3, 3);
  for (int round = 0; round < 20000; ++round) {
    SCOPED_TRACE(round);
    Shape a(2 + engine() % 9 * 2), b(4 + engine() % 9 * 2);
    for (Shape* shape : {&a, &b}) {
      for (double& value : *shape) value = round % 2 ? real(engine) : int(engine() % 7) - 3;
    }
    for (std::size_t i = 0; i < 2 && round % 4 == 3; ++i) {  // as good as on the first edge
      b[i] = a[i] + (a[(i + 2) % a.size()] - a[i]) * .37;
    }
    EXPECT_EQ(pointInPolygon2DCrossingNumber(a, a.n(), b), plainPointInPolygon(a, a.n(), b, false));
    EXPECT_EQ(pointInPolygon2DWindingNumber(a, a.n(), b), plainPointInPolygon(a, a.n(), b, true));
    for (const int edges : {b.n(), 1}) {
      const auto intersect = [&](std::list<double>* xs, std::list<double>* ys) {
        return edges == 1 ? lineSegmentPolygonIntersect(b, b + 2, a, a.n(), xs, ys)
                          : polygonIntersect2D(a, a.n(), b, b.n(), xs, ys);
      };
      std::list<double> xs, ys, plainXs, plainYs;
      const bool any = plainCrossings(a, a.n(), b, b.n(), edges, &plainXs, &plainYs);
      EXPECT_TRUE(intersect(nullptr, nullptr) == any && intersect(&xs, &ys) == any);
      EXPECT_TRUE(xs == plainXs && ys == plainYs);
    }
  }
}

}  // namespace

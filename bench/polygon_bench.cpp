// Hull, point in polygon and polygon crossings against their plain forms.
#include "Brindle/utility/polygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <list>
#include <random>
#include <string>
#include <vector>

#include "ratio.h"
#include "reference/PlainGeometry.h"

namespace {

/// A polygon round the origin whose vertices lie between the radii `inner` and 1.
std::vector<double> ring(int n, double inner, unsigned int seed) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> radius(inner, 1.0);
  std::vector<double> poly;
  for (int i = 0; i < n; ++i) {
    const double angle = 6.283185307179586 * i / n;
    const double r = radius(engine);
    poly.push_back(r * std::cos(angle));
    poly.push_back(r * std::sin(angle));
  }
  return poly;
}

/// The number of 64 points inside, over which the time is taken.
template <class Inside>
int insideCount(Inside inside, std::vector<double>& poly) {
  int count = 0;
  for (int i = 0; i < 64; ++i) {
    double p[] = {i % 8 * 0.25 - 0.875, i / 8 * 0.25 - 0.875};
    count += inside(poly.data(), static_cast<int>(poly.size() / 2), p);
  }
  benchmark::DoNotOptimize(count);
  return count;
}

void pointInPolygon(const std::string& name, const std::vector<double>& poly) {
  const auto compare = [&](const char* function, bool byWinding, auto fastTest) {
    const auto plainTest = [byWinding](double* vertices, int n, double* p) {
      return plainPointInPolygon(vertices, n, p, byWinding);
    };
    const auto run = [&](auto test) {
      return [=, vertices = poly]() mutable { return insideCount(test, vertices); };
    };
    auto fast = run(fastTest);
    auto plain = run(plainTest);
    bench::pair(function + name, fast, plain, [=]() mutable { return fast() == plain(); });
  };
  compare("pointInPolygon2DCrossingNumber/", false, pointInPolygon2DCrossingNumber);
  compare("pointInPolygon2DWindingNumber/", true, pointInPolygon2DWindingNumber);
}

void crossings(const std::string& name, int n, double inner) {
  const auto run = [=](auto intersect) {
    return [=, a = ring(n, inner, 1), b = ring(n, inner, 2)]() mutable {
      std::array<std::list<double>, 2> points;
      intersect(a.data(), n, b.data(), n, &points[0], &points[1]);
      benchmark::DoNotOptimize(points);
      return points;
    };
  };
  auto fast = run(polygonIntersect2D);
  auto plain = run([](double* a, int nA, double* b, int nB, auto* xs, auto* ys) {
    return plainCrossings(a, nA, b, nB, nB, xs, ys);
  });
  bench::pair("polygonIntersect2D/" + name, fast, plain,
              [=]() mutable { return fast() == plain(); });
}

void hull(const std::string& name, int n, int range) {
  std::mt19937 engine(3);
  std::uniform_int_distribution<int> coordinate(0, range);
  std::vector<std::array<int, 2>> sorted(static_cast<std::size_t>(n));
  for (auto& point : sorted) point = {coordinate(engine), coordinate(engine)};
  std::sort(sorted.begin(), sorted.end());
  std::vector<int> points;
  for (const auto& point : sorted) points.insert(points.end(), point.begin(), point.end());

  const auto run = [=](auto build) {
    return [=, in = points, out = std::vector<int>(points.size() + 2)]() mutable {
      int size = build(in.data(), n, out.data());
      benchmark::DoNotOptimize(size);
      return std::vector<int>(out.begin(), out.begin() + 2 * size);
    };
  };
  auto fast = run(chainHull_2D);
  auto plain = run([](int* in, int count, int* out) {
    bool wasCut;
    return plainHull(in, count, out, wasCut);
  });
  bench::pair("chainHull_2D/" + name, fast, plain, [=]() mutable { return fast() == plain(); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  pointInPolygon("8", ring(8, 0.9, 0));
  pointInPolygon("1000smooth", ring(1000, 0.99, 0));
  pointInPolygon("1000jagged", ring(1000, 0.2, 0));
  crossings("10x10", 10, 0.5);
  crossings("300x300", 300, 0.9);
  hull("100", 100, 1000);
  hull("100000", 100000, 40000);
  benchmark::RunSpecifiedBenchmarks();
}

// Angles along a noisy circle against the plain form, which weighs each visit anew.
#include "Brindle/utility/polyline.h"

#include <cmath>
#include <random>
#include <string>

#include "ratio.h"
#include "reference/PlainGeometry.h"

namespace {

void angles(const std::string& name, int n, int radius, int iterations) {
  std::mt19937 engine(4);
  std::uniform_real_distribution<float> noise(-0.1F, 0.1F);
  std::vector<Point2Df> points;
  for (int i = 0; i < n; ++i) {
    const float angle = 6.2831853F * static_cast<float>(i) / static_cast<float>(n);
    points.push_back({std::cos(angle) + noise(engine), std::sin(angle) + noise(engine)});
  }
  const auto fast = [=] {
    std::vector<float> result;
    polylineAngle(points, result, true, radius, iterations);
    benchmark::DoNotOptimize(result.data());
    return result;
  };
  const auto plain = [=] {
    std::vector<float> result = plainPolylineAngle(points, true, radius, iterations);
    benchmark::DoNotOptimize(result.data());
    return result;
  };
  bench::pair("polylineAngle/" + name, fast, plain, [=] { return fast() == plain(); });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  angles("1000points", 1000, 0, 0);
  angles("20points_radius2_1pass", 20, 2, 1);
  angles("1000points_radius3_2passes", 1000, 3, 2);
  angles("1000points_radius20_10passes", 1000, 20, 10);
  benchmark::RunSpecifiedBenchmarks();
}

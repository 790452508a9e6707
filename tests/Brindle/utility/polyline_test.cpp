#include "Brindle/utility/polyline.h"

#include <array>
#include <random>

#include "reference/PlainGeometry.h"
#include "support/Outcome.h"
#include "support/Table.h"

namespace {

using Points = std::vector<Point2Df>;
using Floats = std::vector<float>;
using Numbers = std::vector<double>;

Floats anglesOf(const Points& points, bool normalize, int radius, int iterations) {
  Floats angles(3, 99.0F);
  EXPECT_TRUE(polylineAngle(points, angles, normalize, radius, iterations));
  return angles;
}

Floats curvatureOf(const Points& points, int radius, int iterations) {
  Floats curvature(3, 99.0F);
  EXPECT_TRUE(polylineToCurvature(points, curvature, radius, iterations));
  return curvature;
}

/// A check of a function whose rows begin with `parameters` integers and end with points.
template <class Call>
auto returnsFloats(std::size_t parameters, const Call& call) {
  return [=](const support::Row& row) {
    const Numbers in = support::numbers(row.arguments), expected = support::numbers(row.results);
    const std::vector<int> counts(in.begin(), in.begin() + static_cast<long>(parameters));
    Points points;
    for (std::size_t i = parameters; i < in.size(); i += 2) {
      points.push_back({static_cast<float>(in[i]), static_cast<float>(in.at(i + 1))});
    }
    EXPECT_SAME(call(points, counts), Floats(expected.begin(), expected.end()));
  };
}

TEST(Polyline, KeepsEveryBitOfSinglePrecision) {
  const auto angles = [](const Points& points, const std::vector<int>& counts) {
    return anglesOf(points, counts[0] != 0, counts[1], counts[2]);
  };
  const auto curvature = [](const Points& points, const std::vector<int>& counts) {
    return curvatureOf(points, counts[0], counts[1]);
  };
  support::checkTable("polyline.txt", {{"polylineAngle", returnsFloats(3, angles)},
                                       {"polylineToCurvature", returnsFloats(2, curvature)}});
}

TEST(Polyline, HasTheAnglesOfThePlainForm) {
  std::mt19937 engine(5);
  for (int round = 0; round < 4000; ++round) {
    Points points(engine() % 80);
    std::normal_distribution<float> step(0.0F, std::array{1e-6F, 1e-2F, 2.0F, 2.0F}[engine() % 4]);
    for (std::size_t i = 1; i < points.size(); ++i) {
      points[i] = points[i - 1];
      if (engine() % 8 != 0) points[i] = {points[i].x + step(engine), points[i].y + step(engine)};
    }
    const int radius = int(engine() % (round % 2 ? 6 : 90)), iterations = int(engine() % 4);
    const bool normalize = round % 3 == 0;
    EXPECT_SAME(anglesOf(points, normalize, radius, iterations),
                plainPolylineAngle(points, normalize, radius, iterations))
        << points.size() << " points, radius " << radius << ", " << iterations << " passes";
  }
}

TEST(Polyline, RefusesNegativeParameters) {
  const auto refusal = [](const std::string& signature, int line) {
    return Outcome(false, "Error: invalid input parameter! (inside {" + signature +
                              "}; file: utility.cpp; line: " + std::to_string(line) + ")\n");
  };
  for (const int radius : {-1, 0}) {
    Floats values{1, 2};
    const auto angle = [&] { return polylineAngle(Points(1), values, false, radius, -1 - radius); };
    const auto curvature = [&] {
      return polylineToCurvature(Points(1), values, radius, -1 - radius);
    };
    EXPECT_SAME(outcome(angle), refusal("bool polylineAngle(std::vector<Point2Df>, "
                                        "std::vector<float>&, bool, int, int)",
                                        2296));
    EXPECT_SAME(outcome(curvature), refusal("bool polylineToCurvature(std::vector<Point2Df>, "
                                            "std::vector<float>&, int, int)",
                                            2157));
    EXPECT_SAME(values, (Floats{1, 2}));
  }
}

}  // namespace

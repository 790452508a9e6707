#include "Brindle/utility/polyline.h"

#include <array>
#include <random>

#include "reference/PlainGeometry.h"
#include "support/Call.h"

namespace {

using Points = std::vector<Point2Df>;
using Floats = std::vector<float>;

Points pointsOf(const Floats& coordinates) {
  Points points;
  for (std::size_t i = 0; i < coordinates.size(); i += 2) {
    points.push_back({coordinates[i], coordinates.at(i + 1)});
  }
  return points;
}

bool angleOf(const Floats& points, Floats& angles, bool normalize, int radius, int iterations) {
  return polylineAngle(pointsOf(points), angles, normalize, radius, iterations);
}

bool curvatureOf(const Floats& points, Floats& curvature, int radius, int iterations) {
  return polylineToCurvature(pointsOf(points), curvature, radius, iterations);
}

TEST(Polyline, KeepsEveryBitOfSinglePrecision) {
  support::checkTable("polyline.txt", {{"polylineAngle", support::calls(angleOf)},
                                       {"polylineToCurvature", support::calls(curvatureOf)}});
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
    Floats angles(3, 99.0F);
    SCOPED_TRACE(testing::Message() << points.size() << " points, radius " << radius << ", "
                                    << iterations << " passes");
    EXPECT_TRUE(polylineAngle(points, angles, normalize, radius, iterations));
    EXPECT_SAME(angles, plainPolylineAngle(points, normalize, radius, iterations));
  }
}

}  // namespace

#include "Brindle/utility/polyline.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>

#include "reference/PlainGeometry.h"

namespace {

using Points = std::vector<Point2Df>;
using Floats = std::vector<float>;
using Bits = std::vector<std::uint32_t>;

Bits bitsOf(const Floats& values) {
  Bits bits;
  for (const float value : values) bits.push_back(std::bit_cast<std::uint32_t>(value));
  return bits;
}

Bits anglesOf(const Points& points, bool normalize, int radius, int iterations) {
  Floats angles(3, 99.0F);
  EXPECT_TRUE(polylineAngle(points, angles, normalize, radius, iterations));
  return bitsOf(angles);
}

Bits curvatureOf(const Points& points, int radius, int iterations) {
  Floats curvature(3, 99.0F);
  EXPECT_TRUE(polylineToCurvature(points, curvature, radius, iterations));
  return bitsOf(curvature);
}

// Reckoned outside this code base, with every operation rounded to single precision.
TEST(Polyline, KeepsEveryBitOfSinglePrecision) {
  const Points points = {{0, 0},    {1, .25F},       {2.125F, -.5F}, {3, 1.75F}, {2.5F, 3},
                         {2.5F, 3}, {1.0625F, 3.3F}, {-1.7F, 2.9F},  {-2, .1F}};
  EXPECT_EQ(anglesOf(points, true, 3, 2),
            (Bits{0x403d3c0e, 0x3fd40727, 0x3ec6a1cb, 0x401435f7, 0x409621c8, 0x408cdb93,
                  0x4058931c, 0x3f8d5737, 0x3efb1944}));
  EXPECT_EQ(curvatureOf(points, 0, 0),
            (Bits{0, 0, 0xbed59c9b, 0x3e67fbbe, 0x3f68c5b5, 0, 0, 0x3d84306d, 0x3eae9824}));
  EXPECT_EQ(curvatureOf(points, 2, 1), (Bits{0, 0, 0x3e2bdfbf, 0x3f0423e5, 0x3f3b0665, 0x3f6a9906,
                                             0x3ee33387, 0x3e3ab918, 0x3dd358cd}));
}

TEST(Polyline, AgreesWithThePlainFormsBitForBit) {
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
    ASSERT_EQ(anglesOf(points, normalize, radius, iterations),
              bitsOf(plainPolylineAngle(points, normalize, radius, iterations)));
    ASSERT_EQ(curvatureOf(points, radius, iterations),
              bitsOf(plainPolylineCurvature(points, radius, iterations)));
  }
}

TEST(Polyline, ShortOnesHaveFixedValues) {
  EXPECT_EQ(anglesOf({}, true, 1, 1), Bits());
  EXPECT_EQ(anglesOf({{7, 7}}, true, 1, 1), Bits{0});
  EXPECT_EQ(anglesOf({{0, 0}, {0, 1}}, false, INT_MAX, INT_MAX),
            bitsOf(Floats(2, std::acos(-1.0F))));
  EXPECT_EQ(curvatureOf({{0, 0}, {1e20F, 1e20F}}, 1, 1), (Bits{0, 0}));
}

TEST(Polyline, RefusesNegativeParameters) {
  for (const auto& [radius, iterations] : {std::pair{-1, 0}, {0, -1}}) {
    Floats values = {1, 2};
    testing::internal::CaptureStdout();
    EXPECT_FALSE(polylineAngle({{0, 0}}, values, false, radius, iterations));
    EXPECT_FALSE(polylineToCurvature({{0, 0}}, values, radius, iterations));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Error: invalid input parameter! (inside {bool polylineAngle(std::vector<Point2Df>, "
              "std::vector<float>&, bool, int, int)}; file: utility.cpp; line: 2296)\n"
              "Error: invalid input parameter! (inside {bool polylineToCurvature(std::vector<"
              "Point2Df>, std::vector<float>&, int, int)}; file: utility.cpp; line: 2157)\n");
    EXPECT_EQ(values, (Floats{1, 2}));
  }
}

}  // namespace

#include "Brindle/utility/statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

using Floats = std::vector<float>;

/// The spread, then the mean, of data that lies in the block which `mean` points to at first.
Floats spreadAndMean(const Floats& values, int dim, int count) {
  float *mean = static_cast<float*>(std::malloc(values.size() * sizeof(float))), sd = 99;
  std::copy(values.begin(), values.end(), mean);
  EXPECT_EQ(findMeanAndSD(mean, dim, count, mean, sd), 1);
  Floats result(mean, mean + dim);
  result.insert(result.begin(), sd);
  std::free(mean);
  return result;
}

// The last values were reckoned outside this code base, every operation rounded to single
// precision.
TEST(MeanAndSD, KeepEveryBitOfSinglePrecision) {
  EXPECT_EQ(spreadAndMean({0, 0, 2, 0}, 2, 2), (Floats{1, 1, 0}));
  EXPECT_EQ(spreadAndMean({5, -7}, 2, 1), (Floats{1, 5, -7})) << "a single vector";
  EXPECT_EQ(spreadAndMean({-7.8F, -2.7F, 4.6F, -6.1F, 7.1F, -4.1F}, 2, 3),
            (Floats{0x1.aa6bd6p+2F, 0x1.4cccca0p+0F, -0x1.133332p+2F}));
}

TEST(MeanAndSD, RefuseBeforeAnythingIsTouched) {
  for (int i = 0; i < 3; ++i) {
    float value = 3, sd = 4, *mean = &value;  // not from malloc: must not be released
    testing::internal::CaptureStdout();
    EXPECT_EQ(findMeanAndSD(i == 0 ? nullptr : &value, i != 1, i != 2, mean, sd), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Error: invalid input (inside Tube2DataTableConverter::findMeanAndSD())!\n");
    EXPECT_TRUE(mean == &value && value == 3 && sd == 4) << i;
  }
}

TEST(MapValue, GoesThroughTheDirection) {
  const float tolerance = 1e-6F, beyond = std::nextafter(tolerance, 1.0F);
  const float cases[][6] = {
      {0, 10, 20, 100, 200, 300},
      {0, -tolerance, 1, 100, 200, 100},
      {0, 1, 1, 0, tolerance, 0},
      {0, beyond, beyond, 9, 10, 10},
      {0, 1, 1, 0, beyond, beyond},
      {.1F, .7F, .3F, -3, 11, 0x1.aaaab8p+0F}};  // 0x1.aaaabp+0 without the detour
  for (const auto& [fromStart, fromEnd, value, toStart, toEnd, expected] : cases) {
    float result = 99;
    EXPECT_EQ(mapValue(fromStart, fromEnd, value, toStart, toEnd, result), 0);
    EXPECT_EQ(result, expected) << fromEnd << ", " << toEnd;
  }
}

TEST(AnalyticHeaviside, RisesFrom0To1) {
  EXPECT_EQ(analyticHeaviside(0, 5), 0.5);
  EXPECT_EQ(analyticHeaviside(1, 5), 1 / (1 + std::exp(-10.0)));
}

}  // namespace

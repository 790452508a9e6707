#include "Brindle/utility/timing.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <climits>
#include <cmath>

namespace {

TEST(Timing, ReadsTheWallClock) {
  using namespace std::chrono;
  const auto before = floor<milliseconds>(system_clock::now());
  const sys_time<milliseconds> time{milliseconds{getTimeMs64()}};
  EXPECT_TRUE(before <= time && time <= system_clock::now());
}

TEST(Timing, SplitsMilliseconds) {
  uint64_t h, m, s, ms;
  msec2HMS(90061001, h, m, s, ms);
  EXPECT_EQ((std::array{h, m, s, ms}), (std::array<uint64_t, 4>{25, 1, 1, 1}));
  msec2HMS(UINT64_MAX, h, m, s);
  EXPECT_EQ((std::array{h, m, s}), (std::array<uint64_t, 3>{5124095576030, 25, 51}));
  EXPECT_EQ(msec2FormatedString(0), "000:00:00:00:000");
  EXPECT_EQ(msec2FormatedString(90061001), "001:01:01:01:001");
  EXPECT_EQ(msec2FormatedString(UINT64_MAX), "213503982334:14:25:51:615");
}

TEST(Timing, SplitsMicroseconds) {
  const std::pair<int64_t, std::array<int, 4>> cases[] = {
      {0, {0, 0, 0, 0}},
      {59'990'000, {0, 0, 59, 99}},
      {61'500'000, {0, 1, 1, 6050}},  // the minute counts as hundredths, too
      {3'600'000'000, {1, 0, 0, 360'000}},
      {-1'500'000, {0, 0, -1, -50}},
      {INT64_MAX, {577'014, 32, 22, INT_MIN}},  // 9223372036854 s, of which 32 bits count
  };
  for (const auto& [ticks, fields] : cases) {
    int h, m, s, hundredths;
    clocktickTohhmmss(ticks, h, m, s, hundredths);
    EXPECT_EQ((std::array{h, m, s, hundredths}), fields) << ticks;
  }
}

TEST(Timing, SplitsSeconds) {
  const std::pair<double, std::array<int, 3>> cases[] = {
      {3661.9, {1, 1, 1}},         {-3661.9, {-1, -1, -1}},   {2147483647.5, {596523, 14, 7}},
      {1e300, {-596523, -14, -8}}, {NAN, {-596523, -14, -8}},
  };
  for (const auto& [seconds, fields] : cases) {
    int h, m, s;
    secondTohhmmss(seconds, h, m, s);
    EXPECT_EQ((std::array{h, m, s}), fields) << seconds;
  }
}

TEST(Bytes, ConvertToLargerUnits) {
  constexpr uint64_t three = 3;
  EXPECT_EQ(byte2KB(three << 9), 1.5);
  EXPECT_EQ(byte2MB(three << 19), 1.5);
  EXPECT_EQ(byte2GB(three << 29), 1.5);
  EXPECT_EQ(byte2TB(three << 39), 1.5);
  EXPECT_EQ(byte2TB(uint64_t{1} << 63), 8388608.0);
}

}  // namespace

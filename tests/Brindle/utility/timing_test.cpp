#include "Brindle/utility/timing.h"

#include <chrono>

#include "support/Call.h"

namespace {

using U = uint64_t;

TEST(Timing, SplitsDurationsAndConvertsBytesAsTheTableSays) {
  support::checkTable("timing.txt",
                      {CALLS(msec2HMS, void, U, U&, U&, U&, U&), CALLS(msec2FormatedString),
                       CALLS(clocktickTohhmmss), CALLS(secondTohhmmss), CALLS(byte2KB),
                       CALLS(byte2MB), CALLS(byte2GB), CALLS(byte2TB)});
}

TEST(Timing, ReadsTheWallClock) {
  using namespace std::chrono;
  const auto before = floor<milliseconds>(system_clock::now());
  const sys_time<milliseconds> time{milliseconds{getTimeMs64()}};
  EXPECT_LE(before.time_since_epoch().count(), time.time_since_epoch().count());
  EXPECT_LE(time.time_since_epoch().count(), system_clock::now().time_since_epoch() / 1ms);
}

}  // namespace

#include "Brindle/utility/timing.h"

#include <chrono>

#include "support/Call.h"

namespace {

using support::calls;

TEST(Timing, SplitsDurationsAndConvertsBytesAsTheTableSays) {
  using U = uint64_t;
  support::checkTable("timing.txt", {{"msec2HMS", calls<void, U, U&, U&, U&, U&>(msec2HMS)},
                                     {"msec2HMS(3)", calls<void, U, U&, U&, U&>(msec2HMS)},
                                     {"msec2FormatedString", calls(msec2FormatedString)},
                                     {"clocktickTohhmmss", calls(clocktickTohhmmss)},
                                     {"secondTohhmmss", calls(secondTohhmmss)},
                                     {"byte2KB", calls(byte2KB)},
                                     {"byte2MB", calls(byte2MB)},
                                     {"byte2GB", calls(byte2GB)},
                                     {"byte2TB", calls(byte2TB)}});
}

TEST(Timing, ReadsTheWallClock) {
  using namespace std::chrono;
  const auto before = floor<milliseconds>(system_clock::now());
  const sys_time<milliseconds> time{milliseconds{getTimeMs64()}};
  EXPECT_LE(before.time_since_epoch().count(), time.time_since_epoch().count());
  EXPECT_LE(time.time_since_epoch().count(), system_clock::now().time_since_epoch() / 1ms);
}

}  // namespace
